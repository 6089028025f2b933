#include "presentation/paste.h"

#include <algorithm>
#include <utility>

#include "presentation/page_rows.h"
#include "text/numbers.h"

namespace htr60::presentation {
namespace {

bool IsNumber(std::string_view cell, char separator) { return FindLocaleNumber(cell, separator).has_value(); }

// One line off the front of `text`, whatever ends it.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find_first_of("\r\n");
  const std::string_view line = text.substr(0, end);
  if (end == std::string_view::npos) {
    text = {};
  } else {
    text.remove_prefix(end + (text.substr(end).starts_with("\r\n") ? 2 : 1));
  }
  return line;
}

// The cells of a line without the blanks around them and without empty ones at its end.
std::vector<std::string_view> CellsOf(std::string_view line) {
  const char* parts = " ";
  if (line.find(';') != std::string_view::npos) parts = ";";
  if (line.find('\t') != std::string_view::npos) parts = "\t";
  const bool blanks = *parts == ' ';
  if (blanks) line = Trimmed(line);
  std::vector<std::string_view> cells;
  while (!line.empty()) {
    const std::size_t end = line.find(*parts);
    cells.push_back(Trimmed(line.substr(0, end)));
    line = end == std::string_view::npos ? std::string_view() : line.substr(end + 1);
    if (blanks) line = Trimmed(line);
  }
  while (!cells.empty() && cells.back().empty()) cells.pop_back();
  return cells;
}

std::string_view WithoutBlankLinesAtTheEnd(std::string_view text) {
  const std::size_t last = text.find_last_not_of(" \t;\r\n");
  if (last == std::string_view::npos) return {};
  const std::size_t end = text.find_first_of("\r\n", last);
  return text.substr(0, end);
}

// "Row 3: no number.", "Rows 3, 5 and 6: no number."
std::string NoNumber(const std::vector<std::size_t>& rows) {
  if (rows.empty()) return {};
  std::string sentence = rows.size() == 1 ? "Row " : "Rows ";
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i > 0) sentence += i + 1 == rows.size() ? " and " : ", ";
    sentence += std::to_string(rows[i]);
  }
  return sentence + ": no number.";
}

}  // namespace

PastedColumns ParseColumns(std::string_view text, char decimalSeparator, std::size_t most) {
  PastedColumns pasted;
  text = WithoutBlankLinesAtTheEnd(text);
  const auto isNumber = [&](std::string_view cell) { return IsNumber(cell, decimalSeparator); };
  bool first = true;
  while (!text.empty()) {
    const std::vector<std::string_view> cells = CellsOf(TakeLine(text));
    const bool heading =
        std::exchange(first, false) && !text.empty() && std::none_of(cells.begin(), cells.end(), isNumber);
    if (heading) continue;
    ++pasted.lines;
    pasted.columns = std::max(pasted.columns, cells.size());
    if (pasted.rows.size() == most) continue;
    PastedColumns::Row row;
    std::copy_n(cells.begin(), std::min<std::size_t>(cells.size(), 2), row.cells);
    pasted.rows.push_back(std::move(row));
  }
  for (PastedColumns::Row& row : pasted.rows) {
    row.numbers = isNumber(row.cells[0]) && (pasted.columns < 2 || isNumber(row.cells[1]));
  }
  return pasted;
}

bool Paste::Begin(const PageLayout& page, TextId field, std::string_view text) {
  End();
  if (!control_.form.At(field).Enabled()) return false;
  for (const LayoutGroup& group : page.groups) {
    if (!group.numberOfPoints) continue;
    const auto row = std::find_if(group.rows.begin(), group.rows.end(), [&](const LayoutRow& candidate) {
      return candidate.control == field || candidate.second == field;
    });
    if (row == group.rows.end()) continue;
    pasted_ = ParseColumns(text, control_.codecs.DecimalSeparator(), group.rows.size());
    if (pasted_.columns < 2 && text.find_first_of("\r\n") == std::string_view::npos) return false;
    group_ = &group;
    first_ = static_cast<std::size_t>(row - group.rows.begin());
    second_ = row->second == field;
    asked_ = Question().has_value();
    return true;
  }
  return false;
}

// Points are enabled from the first on: those from the one to begin at.
std::size_t Paste::EnabledPoints() const {
  const auto from = group_->rows.begin() + static_cast<std::ptrdiff_t>(first_);
  const auto end = std::find_if(from, group_->rows.end(),
                                [&](const LayoutRow& row) { return !control_.form.Any(row.control).Enabled(); });
  return static_cast<std::size_t>(end - from);
}

// As many points as all rows need, and as there can be.
std::size_t Paste::Wanted() const { return std::min(first_ + pasted_.lines, group_->rows.size()); }

std::optional<Paste::Points> Paste::PointsWanted() const {
  if (group_ == nullptr || pasted_.columns > 2 || Wanted() <= first_ + EnabledPoints()) return std::nullopt;
  const ChoiceList& list = control_.form.At(group_->numberOfPoints);
  const auto rows = list.Rows();
  const auto row = std::find(rows.begin(), rows.end(), std::to_string(Wanted()));
  if (!list.Enabled() || row == rows.end()) return std::nullopt;
  return Points{group_->numberOfPoints, static_cast<std::size_t>(row - rows.begin())};
}

std::optional<ScreenBar> Paste::Question() const {
  if (!PointsWanted()) return std::nullopt;
  const std::string points = std::to_string(Wanted());
  return ScreenBar{std::to_string(pasted_.lines) + " rows, " + std::to_string(EnabledPoints()) + " points: set " +
                       points + " points?",
                   {"Set " + points + " points", "Fill what fits"}};
}

std::vector<Paste::Typed> Paste::Fields() const {
  std::vector<Typed> fields;
  if (group_ == nullptr) return fields;
  if (pasted_.columns > 2) return fields;
  const std::size_t fit = std::min(EnabledPoints(), pasted_.rows.size());
  for (std::size_t i = 0; i < fit; ++i) {
    const auto& [cells, numbers] = pasted_.rows[i];
    const LayoutRow& row = group_->rows[first_ + i];
    if (!numbers) continue;
    if (pasted_.columns < 2) {
      fields.push_back({TextId{second_ ? row.second : row.control}, cells[0]});
    } else {
      fields.push_back({TextId{row.control}, cells[0]});
      fields.push_back({TextId{row.second}, cells[1]});
    }
  }
  return fields;
}

std::string Paste::Remark() const {
  if (group_ == nullptr) return {};
  if (pasted_.columns > 2) return "Nothing pasted: more than two columns.";
  const std::size_t points = EnabledPoints();
  std::vector<std::size_t> wrong;
  for (std::size_t i = 0; i < std::min(points, pasted_.rows.size()); ++i) {
    if (!pasted_.rows[i].numbers) wrong.push_back(i + 1);
  }
  std::string remark = NoNumber(wrong);
  // Who was asked knows what does not fit.
  if (!asked_ && pasted_.lines > points) {
    if (!remark.empty()) remark += ' ';
    remark += std::to_string(pasted_.lines) + " rows, " + std::to_string(points) + " points.";
  }
  return remark;
}

}  // namespace htr60::presentation

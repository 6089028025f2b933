#include "presentation/list_search.h"

#include <algorithm>
#include <numeric>

#include "text/utf8.h"

namespace htr60::presentation {
namespace {

struct CaseRange {
  char32_t first;
  char32_t last;
  char32_t distance;
};

// Capitals of the alphabets in which units are written. The micro sign is a small mu, the angstrom sign an A with ring.
constexpr CaseRange kCapitals[] = {
    {U'A', U'Z', 0x20},   {0xB5, 0xB5, 0x3BC - 0xB5},    {0xC0, 0xD6, 0x20}, {0xD8, 0xDE, 0x20}, {0x391, 0x3A9, 0x20},
    {0x410, 0x42F, 0x20}, {0x212B, 0x212B, 0U - 0x2046U}};

constexpr char32_t Small(char32_t c) {
  for (const CaseRange& range : kCapitals) {
    if (c >= range.first && c <= range.last) return c + range.distance;
  }
  return c;
}
static_assert(Small(0x212B) == Small(0xC5) && Small(U'z') == U'z' && Small(0xB5) == 0x3BC);

std::u32string Folded(std::string_view text) {
  std::u32string folded;
  folded.reserve(text.size());
  while (!text.empty()) folded += Small(TakeCharacter(text));
  return folded;
}

}  // namespace

ListSearch::ListSearch(std::span<const std::string_view> rows, std::string_view shown)
    : rows_(rows.begin(), rows.end()), found_(rows.size()) {
  std::iota(found_.begin(), found_.end(), 0);
  const auto row = std::find(rows_.begin(), rows_.end(), shown);
  if (row != rows_.end()) {
    current_ = shown_ = static_cast<int>(row - rows_.begin());
  } else if (!shown.empty()) {
    now_ = "Now: " + std::string(shown) + " (not in this list)";
  }
}

void ListSearch::Search(std::string_view text) {
  if (folded_.empty()) {
    for (const std::string& row : rows_) folded_.push_back(Folded(row));
  }
  text_ = text;
  const std::u32string wanted = Folded(text);
  found_.clear();
  std::vector<int> others;
  for (std::size_t i = 0; i < folded_.size(); ++i) {
    if (folded_[i].find(wanted) == std::u32string::npos) continue;
    (!wanted.empty() && folded_[i] == wanted ? found_ : others).push_back(static_cast<int>(i));
  }
  found_.insert(found_.end(), others.begin(), others.end());
  current_ = found_.empty() ? kNone : Extra();
  if (wanted.empty()) current_ = shown_;
  ++generation_;
}

std::string_view ListSearch::Line(int line) const {
  const int row = RowAt(line);
  return row == kNone ? std::string_view(now_) : std::string_view(Row(row));
}

int ListSearch::RowAt(int line) const {
  const int at = line - Extra();
  return at < 0 || at >= static_cast<int>(found_.size()) ? kNone : found_[static_cast<std::size_t>(at)];
}

void ListSearch::MoveTo(int line) { current_ = RowAt(line) == kNone ? kNone : line; }

void ListSearch::Move(ListMove move) {
  if (found_.empty()) return;
  const int first = Extra();
  const int last = Lines() - 1;
  const bool none = current_ == kNone;
  int line = none ? first : current_;  // from nowhere each step leads to the first row
  switch (move) {
    case ListMove::kUp:
      line -= none ? 0 : 1;
      break;
    case ListMove::kDown:
      line += none ? 0 : 1;
      break;
    case ListMove::kPageUp:
      line -= kVisibleLines - 1;
      break;
    case ListMove::kPageDown:
      line += kVisibleLines - 1;
      break;
    case ListMove::kHome:
      line = first;
      break;
    case ListMove::kEnd:
      line = last;
      break;
  }
  current_ = std::clamp(line, first, last);
}

void ListSearch::Find(std::string_view letter) {
  const std::u32string wanted = Folded(letter);
  const int lines = Lines();
  for (int step = 1; step <= lines; ++step) {
    const int line = (std::max(current_, kNone) + step) % lines;
    if (RowAt(line) == kNone || !Folded(Line(line)).starts_with(wanted)) continue;
    current_ = line;
    return;
  }
}

}  // namespace htr60::presentation

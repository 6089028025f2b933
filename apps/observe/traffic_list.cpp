#include "observe/traffic_list.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

namespace htr60::observe {
namespace {

bool IsOpen(const TrafficLine& line) {
  return line.kind == EntryKind::kRead && (line.state == EntryState::kWaiting || line.state == EntryState::kUnanswered);
}

void AddCells(std::string& text, std::initializer_list<std::string_view> cells) {
  std::string_view before;
  for (const std::string_view cell : cells) {
    text.append(before).append(cell);
    before = "\t";
  }
  text += '\n';
}

}  // namespace

TrafficList::TrafficList(const Observer& observer, char decimalSeparator, TimeOfDay timeOfDay)
    : observer_(observer), reader_(observer, decimalSeparator), timeOfDay_(std::move(timeOfDay)) {
  first_ = reader_.NextNumber();
}

TrafficList::Change TrafficList::Refresh() {
  Change change;
  if (held_) return change;
  TakeLines(change);
  change.heads = RefreshHeads();
  return change;
}

void TrafficList::TakeLines(Change& change) {
  for (TrafficLine& line : reader_.Next()) {
    // What went before it was looked at leaves a gap: the list begins anew behind it.
    if (line.number != first_ + lines_.size()) {
      change.gone += rows_.size();
      lines_.clear();
      rows_.clear();
      first_ = line.number;
    }
    if (IsOpen(line)) open_.push_back(line.number);
    if (filter_.Takes(line)) {
      rows_.push_back(line.number);
      ++change.come;
    }
    lines_.push_back(std::move(line));
  }
  while (lines_.size() > Observer::kMostEntries) {
    if (!rows_.empty() && rows_.front() == first_) {
      rows_.pop_front();
      change.come > 0 && rows_.size() < change.come ? --change.come : ++change.gone;
    }
    lines_.pop_front();
    ++first_;
  }
}

// A read is answered after it was given.
bool TrafficList::RefreshHeads() {
  bool any = false;
  std::erase_if(open_, [&](std::uint64_t number) {
    const Entry* entry = observer_.Find(number);
    if (entry == nullptr || number < first_) return true;
    TrafficLine& line = lines_[IndexOf(number)];
    const TrafficLine head = reader_.Head(*entry);
    if (head.state == line.state) return false;
    any = true;
    line.state = head.state;
    line.pair = head.pair;
    line.took = head.took;
    return !IsOpen(line);
  });
  return any;
}

void TrafficList::SetFilter(TrafficFilter filter) {
  filter_ = std::move(filter);
  rows_.clear();
  for (const TrafficLine& line : lines_) {
    if (filter_.Takes(line)) rows_.push_back(line.number);
  }
}

void TrafficList::Clear() {
  first_ += lines_.size();
  lines_.clear();
  rows_.clear();
  open_.clear();
}

std::size_t TrafficList::RowOf(std::uint64_t number) const {
  return static_cast<std::size_t>(std::lower_bound(rows_.begin(), rows_.end(), number) - rows_.begin());
}

std::string TrafficList::JsonLines() const {
  std::string text;
  for (std::size_t row = 0; row < Rows(); ++row) {
    text += ToJson(Row(row), timeOfDay_).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
  }
  return text;
}

std::string TrafficList::AsText(const std::vector<std::size_t>& rows) const {
  std::string text;
  for (const std::size_t row : rows) {
    const TrafficLine& line = Row(row);
    const std::string took = line.took < 0 ? std::string() : std::to_string(line.took) + " ms";
    AddCells(text, {Time(line.at), NameOf(line.kind), std::to_string(line.code), line.page, NameOf(line.state), took,
                    line.fault});
    for (const WireValue& value : line.values) {
      AddCells(text, {"", value.tag, value.name, value.value, value.unit, value.status, value.digits, value.fault});
    }
  }
  return text;
}

std::string ProposedName(std::string_view tag, std::string_view what, std::string_view date, std::string_view ending) {
  constexpr std::string_view kForbidden = "/\\:*?\"<>|";
  std::string name;
  for (const char c : tag) {
    if (static_cast<unsigned char>(c) >= 0x20 && kForbidden.find(c) == std::string_view::npos) name += c;
  }
  while (name.starts_with(' ') || name.starts_with('.')) name.erase(0, 1);
  while (name.ends_with(' ')) name.pop_back();
  if (name.empty()) name = "HTR60";
  return name.append(" ").append(what).append(" ").append(date).append(".").append(ending);
}

}  // namespace htr60::observe

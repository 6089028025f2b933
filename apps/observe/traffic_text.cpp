#include "observe/traffic_text.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace htr60::observe {
namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool Contains(std::string_view text, std::string_view wanted) {
  return std::search(text.begin(), text.end(), wanted.begin(), wanted.end(),
                     [](char a, char b) { return Lower(a) == Lower(b); }) != text.end();
}

std::string CutSentence(const Entry& entry) {
  return std::to_string(entry.size) + " bytes, of which the first " + std::to_string(entry.document.size()) +
         " are kept";
}

}  // namespace

bool TrafficLine::IsMarked() const {
  if (!fault.empty() || state == EntryState::kFailed || state == EntryState::kUnanswered ||
      state == EntryState::kUnasked)
    return true;
  return std::any_of(values.begin(), values.end(), [](const WireValue& value) { return !value.fault.empty(); });
}

std::string TrafficLine::Words() const {
  std::string words;
  for (const WireValue& value : values) {
    if (!words.empty()) words += "; ";
    words += value.name.empty() ? value.tag : value.name;
    words += ": " + (value.fault.empty() ? value.value : value.fault);
    if (!value.unit.empty() && value.fault.empty()) words += " " + value.unit;
    if (!value.status.empty()) words += " (" + value.status + ")";
  }
  if (!fault.empty()) words += (words.empty() ? "" : "; ") + fault;
  return words;
}

bool TrafficFilter::Takes(const TrafficLine& line) const {
  if (kind && line.kind != *kind) return false;
  if (markedOnly && !line.IsMarked()) return false;
  if (text.empty()) return true;
  if (Contains(line.page, text) || Contains(std::to_string(line.code), text) || Contains(NameOf(line.state), text) ||
      Contains(line.Words(), text)) {
    return true;
  }
  return std::any_of(line.values.begin(), line.values.end(),
                     [&](const WireValue& value) { return Contains(value.tag, text) || Contains(value.digits, text); });
}

TrafficReader::TrafficReader(const Observer& observer, char decimalSeparator)
    : observer_(&observer), words_(decimalSeparator) {
  std::string ignored;
  for (const auto& [request, document] : observer_->Gone()) words_.OfAnswer(request, document, ignored);
  next_ = observer_->Dropped() + 1;
}

TrafficLine TrafficReader::Head(const Entry& entry) const {
  TrafficLine line;
  line.number = entry.number;
  line.at = entry.at;
  line.kind = entry.kind;
  line.state = observer_->StateOf(entry);
  line.code = entry.code;
  line.pair = entry.pair;
  line.took = entry.took;
  line.page = entry.page;
  line.fault = entry.why;
  return line;
}

std::vector<TrafficLine> TrafficReader::Next() {
  std::vector<TrafficLine> lines;
  // Entries may have gone before they were looked at.
  next_ = std::max(next_, observer_->Dropped() + 1);
  for (const Entry* entry = observer_->Find(next_); entry != nullptr; entry = observer_->Find(++next_)) {
    TrafficLine line = Head(*entry);
    const WireRequest request = observer_->RequestOf(*entry);
    if (entry->Cut()) {
      line.fault = CutSentence(*entry);
    } else if (entry->kind == EntryKind::kAnswer) {
      line.values = words_.OfAnswer(request, entry->document, line.fault);
    } else {
      line.values = words_.OfRequest(request, entry->document);
    }
    lines.push_back(std::move(line));
  }
  return lines;
}

nlohmann::json ToJson(const TrafficLine& line, const std::function<std::string(std::int64_t)>& timeOfDay) {
  nlohmann::json json = {
      {"number", line.number}, {"atMs", line.at},   {"kind", NameOf(line.kind)},        {"state", NameOf(line.state)},
      {"code", line.code},     {"page", line.page}, {"values", nlohmann::json::array()}};
  if (timeOfDay) json["time"] = timeOfDay(line.at);
  if (line.pair != 0) json[line.kind == EntryKind::kAnswer ? "request" : "answer"] = line.pair;
  if (line.took >= 0) json["tookMs"] = line.took;
  if (!line.fault.empty()) json["fault"] = line.fault;
  for (const WireValue& value : line.values) {
    nlohmann::json one = {{"tag", value.tag}, {"name", value.name}, {"digits", value.digits}, {"value", value.value}};
    if (!value.unit.empty()) one["unit"] = value.unit;
    if (!value.status.empty()) one["status"] = value.status;
    if (!value.fault.empty()) one["fault"] = value.fault;
    json["values"].push_back(std::move(one));
  }
  return json;
}

}  // namespace htr60::observe

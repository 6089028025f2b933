#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "automate/commands.h"
#include "observe/save_file.h"
#include "observe/traffic_text.h"

namespace htr60::automation {
namespace {

using observe::TrafficLine;

void Save(const std::string& file, const std::string& bytes) {
  try {
    observe::SaveWhole(std::filesystem::path(std::u8string(file.begin(), file.end())), bytes);
  } catch (const observe::SaveError& error) {
    throw CommandError(error.what());
  }
}

std::optional<observe::EntryKind> KindOf(Fields& fields) {
  const auto name = fields.TextIfAny("kind");
  if (!name) return std::nullopt;
  for (const auto kind : {observe::EntryKind::kRead, observe::EntryKind::kWrite, observe::EntryKind::kAnswer}) {
    if (observe::NameOf(kind) == *name) return kind;
  }
  throw CommandError("\"kind\" is none of \"read\", \"write\", \"answer\"");
}

Json TrafficSince(VirtualHost& host, std::optional<std::uint64_t> from, const observe::TrafficFilter& filter,
                  const std::optional<std::string>& file) {
  // With a number everything is read anew, and what the next command without one gives stays as it is.
  std::optional<observe::TrafficReader> again;
  if (from) again.emplace(host.Watched());
  observe::TrafficReader reader = again ? *again : host.Traffic();
  std::vector<TrafficLine> lines = reader.Next();
  std::erase_if(lines, [&](const TrafficLine& line) { return line.number < from.value_or(0) || !filter.Takes(line); });
  Json entries = Json::array();
  const auto time = [&](std::int64_t at) { return host.TimeOf(at); };
  for (const TrafficLine& line : lines) entries.push_back(ToJson(line, time));
  Json answer = {{"next", reader.NextNumber()}};
  if (file) {
    std::string text;
    for (const Json& entry : entries) text += TextOf(entry) + "\n";
    Save(*file, text);
    answer["saved"] = entries.size();
  } else {
    answer["entries"] = std::move(entries);
  }
  if (host.Watched().Dropped() > 0) answer["dropped"] = host.Watched().Dropped();
  if (!from) host.Traffic() = std::move(reader);
  return answer;
}

Action Traffic(VirtualHost& host, Fields& fields) {
  observe::TrafficFilter filter;
  filter.text = fields.TextIfAny("text").value_or("");
  filter.kind = KindOf(fields);
  filter.markedOnly = fields.FlagOr("marked", false);
  std::optional<std::uint64_t> from;
  if (fields.Has("from")) {
    from = static_cast<std::uint64_t>(fields.Whole("from", 0, std::numeric_limits<std::int64_t>::max()));
  }
  return [&host, filter = std::move(filter), from, file = fields.TextIfAny("save")]() -> Json {
    return TrafficSince(host, from, filter, file);
  };
}

constexpr CommandRow kRows[] = {
    {.name = "traffic", .prepare = Traffic},
};

}  // namespace

std::span<const CommandRow> ObserveCommands() { return kRows; }

}  // namespace htr60::automation

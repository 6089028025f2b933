#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "automate/commands.h"
#include "automate/control_lookup.h"
#include "form/control_names.h"
#include "observe/save_file.h"
#include "observe/traffic_text.h"
#include "observe/trend.h"

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

// ---- trend

Json FieldJson(const observe::Trend& trend, const observe::TrendField& field) {
  Json json = {{"control", NameOf(field.control)},
               {"name", field.name},
               {"state", observe::NameOf(trend.StateOf(field))},
               {"samples", field.samples.size()},
               {"reading", nullptr}};
  if (const auto reading = trend.Reading(field)) {
    json["reading"] = {
        {"atMs", reading->at}, {"value", reading->value}, {"unit", reading->unit}, {"status", reading->status}};
  }
  return json;
}

Json PlotJson(const observe::TrendPlot& plot) {
  Json json = {{"unit", plot.unit},
               {"fields", plot.fields},
               {"from", Number(plot.figure.y.from)},
               {"to", Number(plot.figure.y.to)},
               {"curves", Json::array()},
               {"limits", Json::array()},
               {"texts", Json::array()}};
  for (const FigureLine& line : plot.figure.lines) {
    if (line.style == LineStyle::kLevel) json["limits"].push_back(Number(line.points.front().y));
    if (line.style != LineStyle::kCurve) continue;
    Json points = Json::array();
    for (const FigurePoint& point : line.points) points.push_back({Number(point.x), Number(point.y)});
    json["curves"].push_back({{"field", line.series}, {"points", std::move(points)}});
  }
  for (const FigureText& text : plot.figure.texts) json["texts"].push_back(text.text);
  return json;
}

struct TrendCommand {
  std::vector<ControlId> add;
  std::vector<ControlId> remove;
  bool clear = false;
  std::optional<int> window;
  std::optional<bool> pause;
  bool movesCursor = false;
  std::optional<std::int64_t> cursor;
  bool csv = false;
  std::optional<std::string> file;
};

std::vector<ControlId> ControlsOf(Fields& fields, const char* name) {
  std::vector<ControlId> controls;
  if (!fields.Has(name)) return controls;
  for (const std::string& control : fields.Texts(name)) controls.push_back(FindByName(control));
  return controls;
}

int WindowOf(Fields& fields) {
  const auto minutes = static_cast<int>(fields.Whole("window", 1, 60));
  for (const int window : observe::Trend::kWindows) {
    if (window == minutes) return minutes;
  }
  throw CommandError("\"window\" is none of 1, 5, 15, 60");
}

// All is tried before anything is changed.
void RequireAddable(const observe::Trend& trend, const TrendCommand& command) {
  std::size_t room = observe::Trend::kMostFields - (command.clear ? 0 : trend.Fields().size());
  room += command.remove.size();
  for (const ControlId control : command.remove) {
    if (command.clear || trend.Offers(control) != observe::Trend::Offer::kRemove) {
      throw CommandError(Quoted(htr60::NameOf(control)) + " is not followed");
    }
  }
  for (const ControlId control : command.add) {
    const auto offer = trend.Offers(control);
    const bool followed = offer == observe::Trend::Offer::kRemove && !command.clear;
    if (offer == observe::Trend::Offer::kNone || followed) {
      throw CommandError(Quoted(htr60::NameOf(control)) + (followed ? " is followed already" : " is no live number"));
    }
    if (room-- == 0) throw CommandError("four fields are followed already");
  }
}

Json CarryOutTrend(VirtualHost& host, const TrendCommand& command) {
  observe::Trend& trend = host.Followed();
  RequireAddable(trend, command);
  if (command.clear) trend.Clear();
  for (const ControlId control : command.remove) trend.Remove(control);
  for (const ControlId control : command.add) trend.Add(control);
  if (command.window) trend.SetWindow(*command.window);
  if (command.pause) trend.Hold(*command.pause);
  if (command.movesCursor) trend.SetCursor(command.cursor);
  Json answer = {{"window", trend.Window()}, {"paused", trend.Held()},  {"fromMs", trend.From()},
                 {"toMs", trend.To()},       {"fields", Json::array()}, {"plots", Json::array()}};
  for (const observe::TrendField& field : trend.Fields()) answer["fields"].push_back(FieldJson(trend, field));
  for (const observe::TrendPlot& plot : trend.Plots()) answer["plots"].push_back(PlotJson(plot));
  if (command.csv) answer["csv"] = trend.Csv();
  if (command.file) Save(*command.file, trend.Csv());
  return answer;
}

Action Trend(VirtualHost& host, Fields& fields) {
  TrendCommand command;
  command.add = ControlsOf(fields, "add");
  command.remove = ControlsOf(fields, "remove");
  command.clear = fields.FlagOr("clear", false);
  if (fields.Has("window")) command.window = WindowOf(fields);
  if (fields.Has("pause")) command.pause = fields.FlagOr("pause", false);
  if (const Json* cursor = fields.Find("cursor")) {
    command.movesCursor = true;
    if (!cursor->is_null()) command.cursor = fields.Whole("cursor", 0, std::numeric_limits<std::int64_t>::max());
  }
  command.csv = fields.FlagOr("csv", false);
  command.file = fields.TextIfAny("save");
  return [&host, command = std::move(command)]() -> Json { return CarryOutTrend(host, command); };
}

constexpr CommandRow kRows[] = {
    {.name = "traffic", .prepare = Traffic},
    {.name = "trend", .prepare = Trend},
};

}  // namespace

std::span<const CommandRow> ObserveCommands() { return kRows; }

}  // namespace htr60::automation

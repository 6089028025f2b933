#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "automate/commands.h"
#include "automate/control_lookup.h"
#include "form/control_names.h"
#include "observe/record.h"
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

// ---- record

Json ValueJson(const std::optional<observe::RecordValue>& value, std::optional<double> error) {
  if (!value) return nullptr;
  Json json = {{"value", Number(value->value)}, {"unit", value->unit}, {"status", value->status}};
  json["error"] = error ? Number(*error) : Json();
  return json;
}

Json StepJson(const observe::Record& record, const observe::RecordStep& step) {
  Json json = {{"atMs", step.at},
               {"step", step.what},
               {"page", step.page},
               {"unit", step.unit},
               {"verdict", step.verdict},
               {"remark", step.remark},
               {"operator", record.OperatorOf(step)},
               {"awaited", step.open},
               {"applied", nullptr},
               {"span", nullptr},
               {"found", ValueJson(step.found, step.FoundError())},
               {"left", ValueJson(step.left, step.LeftError())}};
  if (step.applied) json["applied"] = Number(*step.applied);
  if (step.span) json["span"] = {Number(step.span->lower), Number(step.span->upper)};
  return json;
}

observe::RecordHead HeadOf(VirtualHost& host) {
  const presentation::Screen& screen = host.Presented().Show();
  const auto part = [&](IdentityItem item) { return host.Presented().States().IdentityText(item); };
  observe::RecordHead head;
  head.tag = part(IdentityItem::kTag);
  head.manufacturer = part(IdentityItem::kManufacturer);
  head.serialNumber = part(IdentityItem::kSerialNumber);
  head.firmware = screen.identity.at(3);  // without the blanks around it
  head.measurement = part(IdentityItem::kMeasurement);
  if (host.Dtm()->Simulator() != nullptr && !screen.badges.empty()) head.simulated = screen.badges.front();
  head.date = host.TimeOf(host.Now());
  return head;
}

std::string RecordFile(const std::string& file, VirtualHost& host) {
  const std::filesystem::path path(std::u8string(file.begin(), file.end()));
  if (path.extension() == ".html") return host.Calibrated().Html(HeadOf(host));
  if (path.extension() == ".csv") return host.Calibrated().Csv(HeadOf(host));
  throw CommandError("a record is saved as \".html\" or \".csv\"; the desktop application saves it as \".pdf\", too");
}

struct RecordCommand {
  bool clear = false;
  std::optional<std::string> name;
  bool setsTolerance = false;
  std::optional<double> tolerance;
  std::vector<std::pair<std::size_t, std::string>> remarks;
  std::vector<std::pair<std::size_t, std::string>> names;
  std::optional<std::string> file;
};

void PutRecord(observe::Record& record, const RecordCommand& command) {
  if (command.name) record.SetOperator(*command.name);
  if (command.setsTolerance) record.SetTolerance(command.tolerance);
  for (const auto& [step, text] : command.remarks) record.SetRemark(step, text);
  for (const auto& [step, name] : command.names) record.SetOperatorOf(step, name);
}

// What is saved holds what the command adds; where it cannot be saved, that is taken back.
void SaveRecord(VirtualHost& host, const RecordCommand& command, const RecordCommand& before) {
  try {
    Save(*command.file, RecordFile(*command.file, host));
  } catch (const CommandError&) {
    PutRecord(host.Calibrated(), before);
    throw;
  }
}

Json CarryOutRecord(VirtualHost& host, const RecordCommand& command) {
  observe::Record& record = host.Calibrated();
  RecordCommand before;
  before.name = record.Operator();
  before.setsTolerance = true;
  before.tolerance = record.Tolerance();
  for (const auto& [step, text] : command.remarks) {
    if (step >= record.Steps().size()) throw CommandError("there is no step " + std::to_string(step));
    before.remarks.emplace_back(step, record.Steps()[step].remark);
  }
  for (std::size_t step = 0; step < record.Steps().size(); ++step) {
    before.names.emplace_back(step, record.Steps()[step].who);
  }
  PutRecord(record, command);
  if (command.file) SaveRecord(host, command, before);
  if (command.clear) record.Clear();
  Json answer = {{"steps", Json::array()}, {"worst", record.Worst()}, {"operator", record.Operator()}};
  answer["tolerance"] = record.Tolerance() ? Number(*record.Tolerance()) : Json();
  for (const observe::RecordStep& step : record.Steps()) answer["steps"].push_back(StepJson(record, step));
  return answer;
}

Action Record(VirtualHost& host, Fields& fields) {
  RecordCommand command;
  command.clear = fields.FlagOr("clear", false);
  command.name = fields.TextIfAny("operator");
  if (const Json* tolerance = fields.Find("tolerance")) {
    command.setsTolerance = true;
    if (!tolerance->is_null() && !(tolerance->is_number() && *tolerance > 0)) {
      throw CommandError("\"tolerance\" is no number above 0, nor null");
    }
    if (!tolerance->is_null()) command.tolerance = tolerance->get<double>();
  }
  if (fields.Has("remarks")) {
    for (const Json& remark : fields.Array("remarks")) {
      Fields one(remark, "a remark");
      const auto step = static_cast<std::size_t>(one.Whole("step", 0, std::numeric_limits<std::int32_t>::max()));
      command.remarks.emplace_back(step, one.Text("text"));
      one.End();
    }
  }
  command.file = fields.TextIfAny("save");
  return [&host, command = std::move(command)]() -> Json { return CarryOutRecord(host, command); };
}

constexpr CommandRow kRows[] = {
    {.name = "traffic", .prepare = Traffic},
    {.name = "record", .prepare = Record},
    {.name = "trend", .prepare = Trend},
};

}  // namespace

std::span<const CommandRow> ObserveCommands() { return kRows; }

}  // namespace htr60::automation

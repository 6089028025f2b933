#include "automate/session.h"

#include <utility>

#include "automate/commands.h"
#include "automate/icon_folder.h"
#include "simulator/manager/json_text.h"

namespace htr60::automation {
namespace {

constexpr const char* kSettings[] = {"device", "process", "timing", "faults"};

sim::Settings SettingsOf(Fields& fields) {
  Json own = Json::object();
  for (const char* name : kSettings) {
    if (const Json* member = fields.Find(name)) own[name] = *member;
  }
  const auto preset = fields.TextIfAny("preset");
  if (!preset) return sim::Parse(own);
  sim::Parse(own);  // on their own they have to be right, too
  return sim::Parse(sim::MergeSettings(sim::PresetObject(*preset), own));
}

}  // namespace

Session::Session() = default;
Session::~Session() = default;

Json Session::Do(const Json& command) {
  const std::shared_ptr<Host> alive = host_;  // until the last handler has returned
  try {
    return Carried(Prepare(command));
  } catch (const std::exception& error) {
    return Refused(error.what());
  }
}

std::string Session::DoLine(std::string_view line) {
  Json answer;
  try {
    answer = Do(sim::ParseJsonText(line));
  } catch (const sim::SettingsError& error) {
    answer = Refused(error.what());
  }
  return answer.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Action Session::Prepare(const Json& command) {
  Fields fields(command, "the command");
  const std::string name = fields.Text("do");
  if (name == "create") {
    Action action = PrepareCreate(fields);
    fields.End();
    return action;
  }
  if (name == "quit") {
    fields.End();
    return [this]() -> Json {
      ended_ = true;
      return {};
    };
  }
  if (name == "destroy" && host_) {
    fields.End();
    return [this]() -> Json {
      host_.reset();
      return {};
    };
  }
  if (!host_) throw CommandError("there is no control");
  return automation::Prepare(*host_, command);
}

Action Session::PrepareCreate(Fields& fields) {
  Host::Options options;
  const std::string separator = fields.TextIfAny("decimalSeparator").value_or(".");
  if (separator != "." && separator != ",") throw CommandError("\"decimalSeparator\" is neither \".\" nor \",\"");
  options.decimalSeparator = separator.front();
  const std::string dtm = fields.TextIfAny("dtm").value_or("capture");
  if (dtm != "capture" && dtm != "simulator") throw CommandError("\"dtm\" is neither \"capture\" nor \"simulator\"");
  sim::Settings settings = SettingsOf(fields);
  if (dtm == "simulator") options.simulator = std::move(settings);
  const auto folder = fields.TextIfAny("iconFolder");
  options.iconFolder = folder ? std::filesystem::path(*folder) : DefaultIconFolder();
  return [this, options = std::move(options)]() -> Json {
    host_ = std::make_shared<Host>(options);
    return {};
  };
}

}  // namespace htr60::automation

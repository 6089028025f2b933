#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>

#include "automate/commands.h"
#include "text/xml_escape.h"

namespace htr60::automation {
namespace {

std::string DocumentOf(const Json& tags) {
  std::string document = "<Answer>";
  for (const Json& pair : tags) {
    if (!pair.is_array() || pair.size() != 2 || !pair[0].is_string() || !(pair[1].is_string() || pair[1].is_null())) {
      throw CommandError("\"tags\" is not an array of pairs of texts");
    }
    document += "<Parameter tag=\"";
    AppendXmlEscaped(document, pair[0].get_ref<const std::string&>());
    if (pair[1].is_string()) {
      document += "\" value=\"";
      AppendXmlEscaped(document, pair[1].get_ref<const std::string&>());
    }
    document += "\"/>";
  }
  return document + "</Answer>";
}

Action Answer(VirtualHost& host, Fields& fields) {
  const auto code = static_cast<std::int32_t>(
      fields.Whole("code", std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
  if (fields.Has("document") == fields.Has("tags")) {
    throw CommandError("either \"document\" or \"tags\" says what the answer holds");
  }
  std::string document = fields.Has("tags") ? DocumentOf(fields.Array("tags")) : fields.Text("document");
  return [&host, code, document = std::move(document)]() -> Json {
    host.Answer(code, document);
    return {};
  };
}

Action Requests(VirtualHost& host, Fields&) {
  return [&host]() -> Json { return host.Dtm()->TakeRequests(); };
}

Action Registrations(VirtualHost& host, Fields&) {
  return [&host]() -> Json { return host.Dtm()->TakeRegistrations(); };
}

Action Answers(VirtualHost& host, Fields&) {
  return [&host]() -> Json { return host.Dtm()->TakeAnswers(); };
}

Action Fail(VirtualHost& host, Fields& fields) {
  if (!fields.Has("reads") && !fields.Has("writes")) throw CommandError("\"reads\" or \"writes\" is missing");
  RecordingDtm::Failures failures;
  failures.reads = fields.FlagOr("reads", false);
  failures.writes = fields.FlagOr("writes", false);
  if (fields.Has("codes")) failures.codes = fields.Texts("codes");
  return [&host, failures = std::move(failures)]() -> Json {
    host.Dtm()->SetFailures(failures);
    return {};
  };
}

struct SimulatorCommand {
  Json set;    // null: none
  Json fault;  // null: none
  bool clearAll = false;
  std::optional<int> clear;
  Json get;  // null: none
  bool log = false;
};

Json CarryOut(sim::Manager& simulator, const SimulatorCommand& command) {
  Json answer = Json::object();
  // What can be refused comes first and is tried without effect, so that a refused command has changed nothing.
  if (!command.get.is_null()) simulator.Get(command.get);
  if (!command.fault.is_null()) sim::ParseFault(command.fault, "fault");
  if (command.clear && !simulator.HasBegunFault(*command.clear)) throw CommandError("there is no fault of that number");
  if (!command.set.is_null()) simulator.Set(command.set);
  if (command.clear) simulator.ClearFault(*command.clear);
  if (command.clearAll) simulator.ClearAllFaults();
  if (!command.fault.is_null()) answer["id"] = simulator.BeginFault(command.fault);
  if (!command.get.is_null()) answer["values"] = simulator.Get(command.get);
  if (command.log) {
    const auto log = simulator.TakeLog();
    answer["log"] = log.entries;
    if (log.dropped > 0) answer["dropped"] = log.dropped;
  }
  return answer;
}

Action Simulator(VirtualHost& host, Fields& fields) {
  SimulatorCommand command;
  if (fields.Has("set")) {
    command.set = fields.Any("set");
    Fields(command.set, "\"set\"");
  }
  if (fields.Has("fault")) {
    command.fault = fields.Any("fault");
    Fields(command.fault, "\"fault\"");
  }
  if (fields.Has("clear")) {
    const Json& clear = fields.Any("clear");
    if (clear == "all") {
      command.clearAll = true;
    } else if (clear.is_string()) {
      throw CommandError("\"clear\" is neither a number nor \"all\"");
    } else {
      command.clear = static_cast<int>(fields.Whole("clear", 0, std::numeric_limits<int>::max()));
    }
  }
  if (fields.Has("get")) command.get = fields.Texts("get");
  const bool asksForLog = fields.Has("log");
  command.log = fields.FlagOr("log", false);
  if (command.set.is_null() && command.fault.is_null() && !command.clear && !command.clearAll &&
      command.get.is_null() && !asksForLog) {
    throw CommandError("nothing is asked of the simulator");
  }
  return [&host, command = std::move(command)]() -> Json {
    sim::Manager* simulator = host.Dtm()->Simulator();
    if (simulator == nullptr) throw CommandError("this control has no simulator");
    return CarryOut(*simulator, command);
  };
}

constexpr CommandRow kRows[] = {
    {.name = "answer", .prepare = Answer, .inBox = true, .mayOpenBox = true},
    {.name = "requests", .prepare = Requests, .inBox = true},
    {.name = "registrations", .prepare = Registrations},
    {.name = "answers", .prepare = Answers},
    {.name = "fail", .prepare = Fail},
    {.name = "simulator", .prepare = Simulator},
};

}  // namespace

std::span<const CommandRow> DtmCommands() { return kRows; }

}  // namespace htr60::automation

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "automate/codec_operations.h"
#include "automate/commands.h"
#include "shell/members.h"
#include "text/failure.h"

namespace htr60::automation {
namespace {

// What the control knows at the moment, and operations that no control of the form invokes.

Action MembersOf(VirtualHost& host, Fields&) {
  return [&host]() -> Json {
    UserCntrl& control = host.Control();
    Json members = Json::object();
    for (const Member& member : Members()) {
      Json& value = members[std::string(member.name)];
      if (member.text != nullptr) {
        value = control.*member.text;
      } else if (member.flag != nullptr) {
        value = control.*member.flag;
      } else {
        value = member.held(control);
      }
    }
    for (const PageUnit* unit : control.Pages().units) {
      for (const MemberRow& row : unit->members) {
        std::visit([&](const auto& value) { members[std::string(row.name)] = value; }, row.get(control));
      }
    }
    return {{"members", std::move(members)}};
  };
}

Action Set(VirtualHost& host, Fields& fields) {
  const std::string name = fields.Text("member");
  const auto members = Members();
  const auto member = std::find_if(members.begin(), members.end(), [&](const Member& m) { return m.name == name; });
  if (member == members.end() || (member->text == nullptr && member->flag == nullptr)) {
    throw CommandError("there is no text or flag " + Quoted(name));
  }
  if (member->text != nullptr) {
    return [&host, text = member->text, value = fields.Text("value")]() -> Json {
      host.Control().*text = value;
      return {};
    };
  }
  const auto value = static_cast<Flag>(fields.Whole("value", kSet, kClear));
  return [&host, flag = member->flag, value]() -> Json {
    host.Control().*flag = value;
    return {};
  };
}

Action Codec(VirtualHost& host, Fields& fields) {
  const std::string name = fields.Text("name");
  static const Json kNoArguments = Json::array();
  const Json& args = fields.Has("args") ? fields.Array("args") : kNoArguments;
  return [&host, run = PrepareCodec(name, args)]() -> Json { return {{"result", run(host.Control())}}; };
}

Action Operation(VirtualHost& host, Fields& fields) {
  const std::string name = fields.Text("name");
  const OperationRow* operation = host.Control().FindOperation(name);
  if (operation == nullptr) throw CommandError("there is no operation " + Quoted(name));
  const auto index = static_cast<int>(fields.Whole("index", 0, operation->indexes - 1));
  return [&host, operation, index]() -> Json {
    host.Control().RunOperation(*operation, index);
    return {};
  };
}

Action DocXml(VirtualHost&, Fields& fields) {
  std::vector<std::string> values = fields.Texts("values");
  if (values.size() != kAttributeCount) throw CommandError("\"values\" are not 24 texts");
  return [values = std::move(values)]() -> Json {
    std::array<std::string_view, kAttributeCount> views;
    std::copy(values.begin(), values.end(), views.begin());
    return {{"result", UserCntrl::DocXML(views)}};
  };
}

Action CallMember(VirtualHost& host, Fields& fields) {
  const std::string name = fields.Text("name");
  void (UserCntrl::*member)(std::string_view) = name == "GetFactor1Unit"   ? &UserCntrl::GetFactor1Unit
                                                : name == "GetFactor2Unit" ? &UserCntrl::GetFactor2Unit
                                                                           : nullptr;
  if (member == nullptr) throw CommandError("there is no public member " + Quoted(name));
  const std::vector<std::string> args = fields.Texts("args");
  if (args.size() != 1) throw CommandError("\"args\" is not one text");
  return [&host, member, unit = args.front()]() -> Json {
    try {
      (host.Control().*member)(unit);
    } catch (const RuntimeFailure&) {  // silent, as every failure of the control
    }
    return {};
  };
}

constexpr CommandRow kRows[] = {
    {.name = "members", .prepare = MembersOf, .inBox = true},
    {.name = "set", .prepare = Set},
    {.name = "codec", .prepare = Codec},
    {.name = "operation", .prepare = Operation},
    {.name = "docXml", .prepare = DocXml},
    {.name = "call", .prepare = CallMember},
};

}  // namespace

std::span<const CommandRow> InnerCommands() { return kRows; }

}  // namespace htr60::automation

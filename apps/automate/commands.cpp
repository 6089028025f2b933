#include "automate/commands.h"

#include <utility>

namespace htr60::automation {
namespace {

const CommandRow* FindCommand(std::string_view name) {
  for (const auto rows : {OperatorCommands(), ScreenCommands(), KeyCommands(), ViewCommands(), DtmCommands(),
                          ObserveCommands(), InnerCommands()}) {
    for (const CommandRow& row : rows) {
      if (row.name == name) return &row;
    }
  }
  return nullptr;
}

}  // namespace

Action Prepare(VirtualHost& host, const Json& command, bool inBox) {
  Fields fields(command, "the command");
  const std::string name = fields.Text("do");
  const CommandRow* row = FindCommand(name);
  if (row == nullptr) throw CommandError("unknown command " + Quoted(name));
  if (inBox && !row->inBox) throw CommandError("no command for an open message box: " + Quoted(name));
  Action action = row->prepare(host, fields);
  fields.End();
  return [&host, needsRoom = inBox && row->mayOpenBox, action = std::move(action)]() -> Json {
    if (needsRoom) host.RequireRoomForBox();
    Json answer = action();
    host.Presented().Turn();
    return answer;
  };
}

}  // namespace htr60::automation

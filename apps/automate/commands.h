#pragma once

#include <span>
#include <string_view>

#include "automate/fields.h"
#include "automate/virtual_host.h"

namespace htr60::automation {

/// A command by its name. `prepare` reads all members and changes nothing.
struct CommandRow {
  std::string_view name;
  Action (*prepare)(VirtualHost&, Fields&);
  bool inBox = false;       ///< may run while a message box is open
  bool mayOpenBox = false;  ///< in a box: hands the control something whose handler may open another one
};

// All commands that need a control but `destroy`, by what they are about.
std::span<const CommandRow> OperatorCommands();
std::span<const CommandRow> ScreenCommands();
std::span<const CommandRow> KeyCommands();
std::span<const CommandRow> ViewCommands();
std::span<const CommandRow> DtmCommands();
std::span<const CommandRow> ObserveCommands();
std::span<const CommandRow> InnerCommands();

/// The action of a command for `host`; throws `CommandError`. `inBox`: only what may run while a box is open.
Action Prepare(VirtualHost& host, const Json& command, bool inBox = false);

}  // namespace htr60::automation

#pragma once

#include <string_view>

#include "form/control_names.h"
#include "form/widgets.h"

namespace htr60::automation {

/// The control of a name; throws `CommandError` where there is none.
ControlId FindByName(std::string_view name);
/// The same for one kind of control only.
ControlId FindOfKind(std::string_view name, ControlKind kind);
/// Throws `CommandError` where the operator cannot do anything with the control.
void RequireEnabled(const Control& control);
/// The kind's word in the protocol: "text", "label", "button", "list", "listbox", "tabs", "frame", "picture".
std::string_view WordOf(ControlKind kind);

}  // namespace htr60::automation

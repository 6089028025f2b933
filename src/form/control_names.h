#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "form/control_id.h"
#include "form/widgets.h"

namespace htr60 {

/// The control of a name as it stands on the form, for example "cmdBack" or "txtParameter(45)".
std::optional<ControlId> FindControl(std::string_view name);

/// The name of a control: the inverse of `FindControl`.
std::string NameOf(ControlId control);

std::string_view NameOf(TimerId timer);

}  // namespace htr60

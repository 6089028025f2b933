#pragma once

#include <functional>
#include <string_view>

#include "automate/fields.h"
#include "shell/user_cntrl.h"

namespace htr60::automation {

/// Makes the codec operation `name` ready; throws `CommandError` for an unknown name or arguments that are not its own.
/// What is returned runs it with the control's codec state, never touches the form, and throws `RuntimeFailure` where
/// the operation fails.
std::function<Json(UserCntrl&)> PrepareCodec(std::string_view name, const Json& args);

}  // namespace htr60::automation

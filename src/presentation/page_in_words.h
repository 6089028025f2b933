#pragma once

#include <string>

#include "shell/user_cntrl.h"

namespace htr60::presentation {

/// The title of `page`; where several pages share its frame, that of the control's current one.
std::string_view TitleNow(const UserCntrl& control, const PageLayout& page);

/// What stands before the operator, whatever has been shown yet: title and tabs, "Pressure/Flow, Simulate"; empty where
/// no page is open.
std::string PageInWords(UserCntrl& control);

}  // namespace htr60::presentation

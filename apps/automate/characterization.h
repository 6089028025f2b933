#pragma once

#include "automate/fields.h"
#include "shell/user_cntrl.h"

namespace htr60::automation {

/// Adds `CharPointIndex`, `CharX` and `CharY`, the three values that the characterization page keeps.
void AddCharacterization(UserCntrl& control, Json& members);

}  // namespace htr60::automation

#pragma once

#include <cstdint>

#include "shell/user_cntrl.h"

namespace htr60::pages::primary_value_type {

/// Shows the primary value type of `code` (device value) and gives the tree that type's shape; an unknown code leaves
/// `cmbPVType` as it is, and the decision is made on what it shows.
void ApplyPrimaryValueType(UserCntrl& c, std::int32_t code);

}  // namespace htr60::pages::primary_value_type

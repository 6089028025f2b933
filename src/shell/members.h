#pragma once

#include <span>
#include <string>
#include <string_view>

#include "shell/user_cntrl.h"

namespace htr60 {

/// A member of the control by its name, for scripts: a text, a flag, or whether an interface is held.
struct Member {
  std::string_view name{};
  std::string UserCntrl::*text = nullptr;
  Flag UserCntrl::*flag = nullptr;
  bool (*held)(const UserCntrl&) = nullptr;
};

/// All members in their order.
std::span<const Member> Members();

}  // namespace htr60

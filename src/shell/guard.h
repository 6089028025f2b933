#pragma once

#include <memory>

#include "shell/user_cntrl.h"

namespace htr60 {

/// Runs `call` and lets no failure out.
template <class Call>
void Ignoring(Call&& call) noexcept {
  try {
    call();
  } catch (...) {  // NOLINT(bugprone-empty-catch): there are no error codes and no log
  }
}

/// The one edge of every handler: a failure ends it silently, and the control lives until its handler has ended, also
/// when the frame lets it go while a message box is open.
template <class Handler>
void UserCntrl::Guarded(Handler&& handler) noexcept {
  const std::shared_ptr<UserCntrl> self = weak_from_this().lock();
  Ignoring(handler);
}

}  // namespace htr60

#pragma once

#include <cstddef>
#include <string_view>

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

/// Whether a UTF-8 text has at least `characters` characters.
inline bool CharacterCountAtLeast(std::string_view text, std::size_t characters) {
  for (const char c : text) {
    if (characters == 0) break;
    if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U) --characters;
  }
  return characters == 0;
}

}  // namespace htr60

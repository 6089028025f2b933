#pragma once

#include <string_view>

#include "shell/user_cntrl.h"

namespace htr60 {

/// The general form of a tab handler: `RequestCode` "0", polling stopped, then the step. The read's code is the step's
/// own, for handlers of inner strips that ran meanwhile leave theirs in `RequestCode`.
void RunTab(UserCntrl& c, const TabStep& step);

/// The same, but the read goes out last, so the timer runs also where it fails.
void RunTabReadingLast(UserCntrl& c, TabStep step);

/// What a button that opens a page does: hide all, show the frame, names, Back and Write, read.
struct OpenStep {
  FrameId frame{};
  std::string_view page{};
  std::string_view subPage{};  ///< empty: unchanged
  ButtonState write = ButtonState::kUnchanged;
  int read = 0;  ///< 0: none
};

void OpenPage(UserCntrl& c, const OpenStep& step);

}  // namespace htr60

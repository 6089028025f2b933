#pragma once

#include <string_view>

#include "pages/pages.h"
#include "shell/user_cntrl.h"

/// What the pages of the Analog Input blocks share with one another.
namespace htr60::pages::analog_input {

inline constexpr NameSet kPages{"Analog Input 1", "Analog Input 2", "Analog Input 3"};
inline constexpr int kScalesRead = 80;

/// The pages end in the number of their block. Another page leaves the block.
inline void SelectBlock(UserCntrl& c) {
  if (kPages.Has(c.CurrentPage)) c.BlockSelector = c.CurrentPage.back();
}

/// The block in hand as the first attribute of a request.
inline std::string_view Block(const UserCntrl& c) {
  return c.BlockSelector.empty() ? std::string_view("None") : std::string_view(c.BlockSelector);
}

/// Sets the captions of the output scale's unit; an empty text leaves them.
void SetOutputUnit(UserCntrl& c, std::string_view unit);

}  // namespace htr60::pages::analog_input

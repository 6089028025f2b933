#pragma once

#include <array>
#include <string>

#include "shell/user_cntrl.h"

namespace htr60::pages::characterization {

/// What the point entry keeps: the number of the point being entered, and the texts of the points so far.
struct State {
  // NOLINTBEGIN(readability-identifier-naming): scripts know them by these names.
  std::int16_t CharPointIndex = 0;
  std::array<std::string, 6> CharX;  ///< measured pressures; the first stays empty
  std::array<std::string, 6> CharY;  ///< applied pressures
  // NOLINTEND(readability-identifier-naming)
};

State& StateOf(UserCntrl& c);

}  // namespace htr60::pages::characterization

#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "presentation/screen.h"

namespace htr60::presentation {

/// What stands in words beside the fields of one line.
struct LineWords {
  std::string words{};
  std::string
      state{};  ///< in their place where they do not fit: the name of the state, where one field alone has words
  std::string least{};  ///< where that does not fit either: "?" for a hint
  bool alert = false;   ///< the operator must look at it

  bool operator==(const LineWords&) const = default;
};

/// Of the visible fields of a line, in their order. Two that say the same say it once: their shapes tell them apart.
LineWords WordsOf(std::span<const ScreenRow* const> fields);

/// What of them stands in a room, given in the view's lengths, as is the width of a character. Longer than the room it
/// is to be ended with dots: the beginning of the words is worth more than the name of their state.
std::string_view FittingIn(const LineWords& line, int room, int character,
                           const std::function<int(std::string_view)>& widthOf);

}  // namespace htr60::presentation

#pragma once

#include <span>
#include <string>

#include "presentation/screen.h"

namespace htr60::presentation {

/// What stands in words beside the fields of one line.
struct LineWords {
  std::string words;
  std::string brief;   ///< in their place where they do not fit
  bool alert = false;  ///< the operator must look at it
};

/// Of the visible fields of a line, in their order. Two that say the same say it once: their shapes tell them apart.
LineWords WordsOf(std::span<const ScreenRow* const> fields);

}  // namespace htr60::presentation

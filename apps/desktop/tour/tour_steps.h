#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "desktop/core.h"

namespace htr60::desktop {

enum class TourDo : std::uint8_t {
  kNode,      ///< presses the node `text` of the tree
  kButton,    ///< presses the button `control`: of the page, Back or Save
  kTab,       ///< presses tab `number` of the strip `control`
  kType,      ///< replaces the text of the field `control` by `text`; a number has a point in every locale
  kCode,      ///< as kType, and the text is printed nowhere
  kPaste,     ///< pastes `text` into the field `control`
  kChoose,    ///< picks the row `text` of the list `control`
  kWrite,     ///< presses Write
  kRevert,    ///< presses Revert
  kBox,       ///< waits for a message box and presses "OK", "Yes" or "No" in it
  kBar,       ///< presses the button `text` of the bar across the page
  kMenu,      ///< chooses `text` in a menu
  kClose,     ///< closes the window
  kWait,      ///< waits until the page is read and nothing is under way
  kPass,      ///< lets `number` seconds go by
  kExpect,    ///< waits until the form shows `text` in `control`; a number has a point in every locale
  kSmallest,  ///< makes the window as small as it can be, or with `text` "no" as large as it was
  kLarge,     ///< makes the window large enough for a dock, or with `text` "no" as large as it was
  kDock,      ///< shows the dock `text`, or closes it
  kFault,     ///< begins the fault `text` in the simulator dock; "none": ends all
  kProcess,   ///< sets the number field `text` of a dock to `number`
  kOperator,  ///< puts the operator's name `text` into the calibration record
  kRecord,    ///< saves the calibration record under the name `text`
  kFollow,    ///< picks "Add to trend" of the field `control`
  kPicture,   ///< leaves a picture of the window under the name `text`
};

struct TourStep {
  TourDo what;
  ControlId control = {};
  std::string_view text = {};
  int number = 0;
};

/// The tour of the pages, in order.
std::span<const TourStep> TourSteps();

}  // namespace htr60::desktop

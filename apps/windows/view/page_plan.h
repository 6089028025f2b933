#pragma once

#include <string>
#include <vector>

#include "form/layout.h"
#include "presentation/flow.h"
#include "presentation/presentation.h"
#include "windows/view/look.h"
#include "windows/view/shapes.h"

namespace htr60::view {

/// A control at its place.
struct PlannedField {
  ControlId control{};
  RowKind kind = RowKind::kText;
  RowRole role = RowRole::kNone;
  RECT rect{};
  bool number = false;  ///< right-aligned, and never cut
  bool large = false;
  bool enabled = true;
  bool pale = false;
  bool wordsCut = false;  ///< what stands beside it is not all to be seen
  std::wstring text;
  std::wstring name;         ///< for assistive technology
  std::wstring description;  ///< likewise
  std::wstring note;         ///< for the tooltip
  char mnemonic = '\0';
};

/// Words that the page paints.
struct PlannedText {
  enum class Style { kPlain, kTitle, kPale, kWords, kAlert, kMessage };

  RECT rect{};
  std::wstring text;
  Style style = Style::kPlain;
  ControlId field{};     ///< whose caption, unit or words it is; none of a title
  char mnemonic = '\0';  ///< of a title
};

struct PlannedShape {
  RECT rect{};
  Shape shape = Shape::kNone;
  std::string_view name;
};

/// What stands where on the page in front. Lengths are pixels from its upper left corner.
struct PagePlan {
  std::vector<PlannedField> fields;
  std::vector<PlannedText> texts;
  std::vector<PlannedShape> shapes;
  std::vector<RECT> boxes;
  std::vector<presentation::FlowArrow> arrows;
  RECT figure{};  ///< empty: none
  int width = 0;  ///< that it needs, where the room is narrower
  int height = 0;
};

/// The page in front in a room of that size.
PagePlan PlanPage(UserCntrl& control, presentation::Presentation& presented, const Look& look, SIZE room);

}  // namespace htr60::view

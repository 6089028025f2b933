#pragma once

#include <optional>
#include <span>
#include <vector>

#include "figures/figure.h"

/// Where the texts of a figure stand, in the lengths of the view that has measured them; y grows downwards.
namespace htr60::figures {

struct LabelRect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

struct LabelWish {
  FigurePoint at;  ///< what it belongs to
  double width = 0;
  double height = 0;
  bool leftOf = false;   ///< rather before its point than after it
  bool canWait = false;  ///< left out where it would stand on something else
};

struct LabelLine {
  FigurePoint from;
  FigurePoint to;
};

struct LabelGround {
  LabelRect room;                      ///< what they keep inside
  std::span<const LabelLine> lines{};  ///< what they do not cross
  std::span<const LabelRect> marks{};  ///< what they do not cover
  double gap = 0;                      ///< from a point to its text
};

/// One for each wish, in its order; none: there is no place for it. No label lies on another, nor one that can wait on
/// a line or a mark.
std::vector<std::optional<LabelRect>> PlaceLabels(std::span<const LabelWish> wishes, const LabelGround& ground);

}  // namespace htr60::figures

#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string_view>
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

/// What a view knows of where it paints.
struct LabelPaper {
  std::function<FigurePoint(FigurePoint)> at;  ///< where a point of the figure lies
  std::function<double(std::string_view)> widthOf;
  double letters = 0;    ///< height of letters
  double character = 0;  ///< width of one, and the side of a marker
  LabelRect plot;        ///< between the axes
  double top = 0;        ///< how far up texts may stand
  double right = 0;      ///< how far to the right
};

/// The places of `figure.texts`, in their order, off its lines and markers.
std::vector<std::optional<LabelRect>> PlaceTexts(const Figure& figure, const LabelPaper& paper);

}  // namespace htr60::figures

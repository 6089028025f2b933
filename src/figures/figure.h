#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "form/form.h"
#include "form/layout.h"

namespace htr60 {

/// A drawing as lines, points and texts in the units of its axes, computed from texts of the form. It is no control: it
/// sets nothing and holds nothing back. Views paint it with their own painter.
struct FigurePoint {
  double x = 0;
  double y = 0;
};

enum class LineStyle : std::uint8_t {
  kCurve,      ///< the curve itself
  kWrong,      ///< a stretch that is wrong: thick and dashed, in the alert colour
  kLevel,      ///< a level line, dotted
  kReference,  ///< thin and dashed
};

struct FigureLine {
  std::vector<FigurePoint> points;
  LineStyle style = LineStyle::kCurve;
};

enum class MarkerShape : std::uint8_t {
  kFilledSquare,  ///< a point as read
  kHollowSquare,  ///< a point not written yet
  kRing,          ///< around the point whose field has the focus
  kCross,         ///< in the middle of a wrong stretch
};

struct FigureMarker {
  FigurePoint at;
  MarkerShape shape = MarkerShape::kFilledSquare;
  ControlId field{};  ///< a click on the marker moves the focus there
};

struct FigureText {
  FigurePoint at;
  std::string text;
  bool rightAligned = false;  ///< ends at `at` instead of beginning after it
};

struct FigureTick {
  double value = 0;
  std::string text;
};

struct FigureAxis {
  std::string caption;
  double from = 0;
  double to = 1;
  std::vector<FigureTick> ticks;  ///< rising, within the axis
};

struct Figure {
  FigureAxis x;
  FigureAxis y;
  std::vector<FigureLine> lines;
  std::vector<FigureMarker> markers;
  std::vector<FigureText> texts;
  std::string verdictCaption;        ///< caption of the device's verdict, shown above with its shape
  std::string verdict;               ///< the verdict's text as it stands
  std::vector<std::string> above;    ///< further lines above
  std::vector<std::string> remarks;  ///< lines below, the figure's own begin with "Check:"
  std::string missing;               ///< not empty: nothing can be drawn, and this says why
  std::string sentence;              ///< what the figure shows, for assistive technology
};

/// What a figure is computed from: the form's texts, and what only the view knows of them.
struct FigureSource {
  Form& form;
  char decimalSeparator = '.';
  /// Set by the program since the page's node was activated, or typed since.
  std::function<bool(ControlId)> known;
  /// Typed and not written.
  std::function<bool(ControlId)> unwritten;
  ControlId focus{};
};

/// The figure of a page; `kNone` gives an empty one.
Figure ComputeFigure(FigureKind kind, const FigureSource& source);

}  // namespace htr60

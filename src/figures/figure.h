#pragma once

#include <cstdint>
#include <functional>
#include <optional>
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

  bool operator==(const FigurePoint&) const = default;
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
  std::uint8_t series = 0;  ///< of several curves which, 0 to 3: told apart by colour and dashes

  bool operator==(const FigureLine&) const = default;
};

/// A stretch of the Y axis that is right, as wide as the drawing.
struct FigureBand {
  double from = 0;
  double to = 0;

  bool operator==(const FigureBand&) const = default;
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

  bool operator==(const FigureMarker&) const = default;
};

struct FigureText {
  FigurePoint at;
  std::string text;
  bool rightAligned = false;  ///< ends at `at` instead of beginning after it
  bool canWait = false;       ///< left out where it would stand on something else

  bool operator==(const FigureText&) const = default;
};

struct FigureTick {
  double value = 0;
  std::string text;

  bool operator==(const FigureTick&) const = default;
};

struct FigureAxis {
  std::string caption;
  double from = 0;
  double to = 1;
  std::vector<FigureTick> ticks;  ///< rising, within the axis

  bool operator==(const FigureAxis&) const = default;
};

/// Where something lies for the bar it belongs to. Beyond an end it stands at that end, with an arrow.
enum class BarReach : std::uint8_t { kWithin, kAbove, kBelow };

/// A limit or a point of a bar, with a flag of words.
struct BarMark {
  double at = 0;
  std::string text;
  BarReach reach = BarReach::kWithin;
  bool unwritten = false;

  bool operator==(const BarMark&) const = default;
};

enum class BarSpanStyle : std::uint8_t {
  kBracket,  ///< how far something reaches
  kWrong,    ///< between two that are out of order: dashed, with a cross in its middle
};

struct BarSpan {
  double from = 0;
  double to = 0;
  BarSpanStyle style = BarSpanStyle::kBracket;

  bool operator==(const BarSpan&) const = default;
};

/// The present value of what the bar shows.
struct BarPointer {
  double at = 0;
  std::string text;
  std::string status;  ///< with its shape
  BarReach reach = BarReach::kWithin;

  bool operator==(const BarPointer&) const = default;
};

/// One quantity as an upright bar with marks, spans and a pointer.
struct FigureBar {
  FigureAxis axis;
  double from = 0;  ///< the bar on its axis; what the axis has beyond it is hatched
  double to = 1;
  std::vector<BarMark> marks;
  std::vector<BarSpan> spans;
  std::optional<BarPointer> pointer;

  bool operator==(const FigureBar&) const = default;
};

struct Figure {
  FigureAxis x;
  FigureAxis y;
  std::vector<FigureLine> lines;
  std::vector<FigureBand> bands;
  std::vector<FigureMarker> markers;
  std::vector<FigureText> texts;
  std::optional<FigureBar> bar;      ///< beside the axes
  bool barAlone = false;             ///< there are no axes
  std::string verdictCaption;        ///< caption of the device's verdict, shown above with its shape
  std::string verdict;               ///< the verdict's text as it stands
  RowRole verdictRole{};             ///< which of its texts are good
  std::string alarmCaption;          ///< caption of the device's alarms
  std::vector<std::string> alarms;   ///< a line above for each, with its shape
  std::vector<std::string> above;    ///< further lines above
  std::vector<std::string> remarks;  ///< lines below, the figure's own begin with "Check:"
  std::string missing;               ///< not empty: nothing but the bar can be drawn, and this says why
  std::string sentence;              ///< what the figure shows, for assistive technology

  bool operator==(const Figure&) const = default;
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
  /// Bears a hint that the number which its text reads as is not the one that is meant; empty: none does.
  std::function<bool(ControlId, double)> hinted{};
  /// Time of day of the last answer that the figure of a page without reads is drawn from; empty: none has come.
  std::string lastRead{};
};

/// The figure of a page; `kNone` gives an empty one.
Figure ComputeFigure(FigureKind kind, const FigureSource& source);

}  // namespace htr60

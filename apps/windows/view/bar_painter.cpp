#include "windows/view/bar_painter.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "figures/spread.h"
#include "windows/base/text.h"
#include "windows/view/shapes.h"

namespace htr60::view {
namespace {

// In characters.
constexpr int kBody = 2;
constexpr int kPointerRoom = 2;
constexpr int kSpanRoom = 4;
constexpr int kLeaderRoom = 2;

std::wstring Wide(std::string_view text) { return com::Utf16WithMarks(text); }

Shape ShapeOfStatus(std::string_view status) {
  return ShapeOf(presentation::MarkOf(RowRole::kNone, RowKind::kStatus, status));
}

}  // namespace

BarPainter::BarPainter(const Canvas& canvas, const FigureBar& bar)
    : canvas_(canvas),
      look_(canvas.Style()),
      bar_(bar),
      gap_(look_.Character()),
      hairline_(std::max(1, look_.Pixels(1))) {}

int BarPainter::PointerWidth() const {
  if (!bar_.pointer) return 0;
  int width = look_.WidthOf(Wide(bar_.pointer->text));
  if (!bar_.pointer->status.empty()) {
    width += gap_ + look_.WidthOf(Wide(bar_.pointer->status));
    if (ShapeOfStatus(bar_.pointer->status) != Shape::kNone) width += look_.Ascent() + gap_ / 2;
  }
  return width;
}

int BarPainter::LeftWidth() const {
  int width = PointerWidth();
  for (const FigureTick& tick : bar_.axis.ticks) width = std::max(width, look_.WidthOf(Wide(tick.text)));
  return width + gap_ * kPointerRoom;
}

int BarPainter::RightWidth() const {
  int width = 0;
  for (const BarMark& mark : bar_.marks) width = std::max(width, look_.WidthOf(Wide(mark.text)));
  return width + gap_ * (kSpanRoom + kLeaderRoom + 1);
}

int BarPainter::Width() const { return LeftWidth() + gap_ * kBody + RightWidth(); }

int BarPainter::Y(double value) const {
  const double span = bar_.axis.to - bar_.axis.from;
  const double share = span == 0 ? 0.5 : (value - bar_.axis.from) / span;
  return static_cast<int>(std::lround(body_.bottom - share * (body_.bottom - body_.top)));
}

void BarPainter::Text(LONG left, LONG right, double middle, const std::string& text, UINT flags) const {
  const LONG top = static_cast<LONG>(std::lround(middle)) - look_.Line() / 2;
  canvas_.Text({left, top, right, top + look_.Line()}, Wide(text), look_.windowText,
               flags | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
}

void BarPainter::Paint(const RECT& room) {
  const int line = look_.Line();
  Text(room.left, room.right, room.top + line / 2.0, bar_.axis.caption, DT_LEFT);
  // Half a line at either end for the labels of the ends, and room for their arrows.
  const LONG left = room.left + LeftWidth();
  body_ = {left, room.top + line * 2, left + gap_ * kBody, room.bottom - line};
  if (body_.bottom <= body_.top) return;
  PaintBody();
  for (const BarSpan& span : bar_.spans) PaintSpan(span);
  PaintMarks(room.right);
  PaintLeft();
}

// What the axis has beyond the bar is hatched.
void BarPainter::PaintBody() const {
  const HBRUSH hatch = CreateHatchBrush(HS_BDIAGONAL, look_.edge);
  SetBkMode(canvas_.Context(), TRANSPARENT);
  FillRect(canvas_.Context(), &body_, hatch);
  DeleteObject(hatch);
  canvas_.Fill({body_.left, Y(bar_.to), body_.right, Y(bar_.from)}, look_.grid);
  canvas_.Frame(body_, look_.windowText);
}

void BarPainter::PaintArrow(BarReach reach, LONG x, LONG y) const {
  if (reach == BarReach::kWithin) return;
  const LONG tip = reach == BarReach::kAbove ? y - gap_ * 2 : y + gap_ * 2;
  const LONG back = reach == BarReach::kAbove ? tip + gap_ : tip - gap_;
  const Canvas::Stroke stroke{.color = look_.windowText, .width = hairline_};
  canvas_.Line({x, y}, {x, tip}, stroke);
  canvas_.Line({x, tip}, {x - gap_ / 2, back}, stroke);
  canvas_.Line({x, tip}, {x + gap_ / 2, back}, stroke);
}

// Brackets open to the bar; what is wrong is dashed further out, in the alert colour.
void BarPainter::PaintSpan(const BarSpan& span) const {
  const bool wrong = span.style == BarSpanStyle::kWrong;
  const LONG from = Y(span.from);
  const LONG to = Y(span.to);
  const LONG x = body_.right + gap_ * (wrong ? 6 : 3) / 2;
  const LONG foot = body_.right + gap_ / 2;
  const POINT points[] = {{foot, from}, {x, from}, {x, to}, {foot, to}};
  Canvas::Stroke stroke{.color = look_.windowText, .width = hairline_};
  if (wrong) stroke = {.color = look_.alert, .width = 3 * hairline_, .style = PS_DASH, .round = false};
  canvas_.Lines(points, stroke);
  if (!wrong) return;
  const LONG arm = gap_ / 2;
  const LONG middle = (from + to) / 2;
  stroke = {.color = look_.alert, .width = std::max(2, gap_ / 4)};
  canvas_.Line({x - arm, middle - arm}, {x + arm, middle + arm}, stroke);
  canvas_.Line({x - arm, middle + arm}, {x + arm, middle - arm}, stroke);
}

void BarPainter::PaintMarks(LONG right) const {
  std::vector<double> wanted;
  for (const BarMark& mark : bar_.marks) wanted.push_back(Y(mark.at));
  const double half = look_.Line() / 2.0;
  const auto places = figures::SpreadLabels(wanted, look_.Line(), body_.top - half, body_.bottom + half);
  for (std::size_t i = 0; i < bar_.marks.size(); ++i) {
    const BarMark& mark = bar_.marks[i];
    const LONG leader = body_.right + gap_ * kSpanRoom;
    const LONG x = leader + gap_ * kLeaderRoom;
    const auto at = static_cast<LONG>(wanted[i]);
    const POINT path[] = {{body_.left, at}, {leader, at}, {x - gap_ / 2, static_cast<LONG>(std::lround(places[i]))}};
    canvas_.Lines(path, {.color = look_.edge});
    const RECT square{body_.right - gap_ / 2, at - gap_ / 2, body_.right + gap_ - gap_ / 2, at + gap_ - gap_ / 2};
    canvas_.Fill(square, look_.accent);
    if (mark.unwritten) {
      RECT inside = square;
      InflateRect(&inside, -std::max(1, gap_ / 6), -std::max(1, gap_ / 6));
      canvas_.Fill(inside, look_.window);
    }
    PaintArrow(mark.reach, body_.right, at);
    Text(x, right, places[i], mark.text, DT_LEFT);
  }
}

// The ends' numbers stay where they are wanted unless the pointer needs their place.
void BarPainter::PaintLeft() const {
  std::vector<double> wanted;
  for (const FigureTick& tick : bar_.axis.ticks) wanted.push_back(Y(tick.value));
  if (bar_.pointer) wanted.push_back(Y(bar_.pointer->at));
  const double half = look_.Line() / 2.0;
  const auto places = figures::SpreadLabels(wanted, look_.Line(), body_.top - half, body_.bottom + half);
  const LONG right = body_.left - gap_ * kPointerRoom;
  for (std::size_t i = 0; i < bar_.axis.ticks.size(); ++i) {
    Text(right - LeftWidth(), right, places[i], bar_.axis.ticks[i].text, DT_RIGHT);
    const auto y = static_cast<LONG>(wanted[i]);
    canvas_.Line({body_.left - gap_ / 2, y}, {body_.left, y}, {.color = look_.windowText, .width = hairline_});
  }
  if (bar_.pointer) PaintPointer(places.back());
}

void BarPainter::PaintPointer(double labelY) const {
  const BarPointer& pointer = *bar_.pointer;
  const LONG y = Y(pointer.at);
  const POINT triangle[] = {
      {body_.left, y}, {body_.left - gap_ * 3 / 2, y - gap_ * 7 / 10}, {body_.left - gap_ * 3 / 2, y + gap_ * 7 / 10}};
  const Canvas::Stroke stroke{.color = look_.accent, .width = hairline_};
  canvas_.Polygon(triangle, stroke, &look_.accent);
  canvas_.Line({body_.left, y}, {body_.right, y}, stroke);
  PaintArrow(pointer.reach, (body_.left + body_.right) / 2, y);
  LONG x = body_.left - gap_ * kPointerRoom - PointerWidth();
  const auto word = [&](const std::string& text) {
    const int wide = look_.WidthOf(Wide(text));
    Text(x, x + wide + 1, labelY, text, DT_LEFT);
    x += wide;
  };
  word(pointer.text);
  if (pointer.status.empty()) return;
  x += gap_;
  if (const Shape shape = ShapeOfStatus(pointer.status); shape != Shape::kNone) {
    const int side = look_.Ascent();
    const LONG top = static_cast<LONG>(std::lround(labelY)) - side / 2;
    PaintShape(canvas_, {x, top, x + side, top + side}, shape);
    x += side + gap_ / 2;
  }
  word(pointer.status);
}

}  // namespace htr60::view

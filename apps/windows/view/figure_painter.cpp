#include "windows/view/figure_painter.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "figures/labels.h"
#include "windows/base/text.h"
#include "windows/view/bar_painter.h"
#include "windows/view/shapes.h"

namespace htr60::view {
namespace {

constexpr double kBarShare = 0.6;  // a bar leaves the rest to the axes

std::wstring Wide(std::string_view text) { return com::Utf16WithMarks(text); }

double Share(const FigureAxis& axis, double value) {
  return axis.to == axis.from ? 0.5 : (value - axis.from) / (axis.to - axis.from);
}

LONG Whole(double value) { return static_cast<LONG>(std::lround(value)); }

/// A line above the drawing: words, and for what the device says a shape before them.
struct Said {
  std::wstring text;
  Shape shape = Shape::kNone;
};

std::vector<Said> Above(const Figure& figure) {
  std::vector<Said> lines;
  const auto said = [&](const std::string& caption, const std::string& text, RowRole role, RowKind kind) {
    lines.push_back({Wide(caption + ": " + text), ShapeOf(presentation::MarkOf(role, kind, text))});
  };
  if (!figure.verdict.empty()) said(figure.verdictCaption, figure.verdict, figure.verdictRole, RowKind::kStatus);
  for (const std::string& alarm : figure.alarms) {
    said(figure.alarmCaption, alarm, RowRole::kVerdict, RowKind::kListBox);
  }
  for (const std::string& line : figure.above) lines.push_back({Wide(line), Shape::kNone});
  return lines;
}

/// Where the parts of a figure stand in a room.
class Arrangement {
 public:
  Arrangement(const Figure& figure, const RECT& room, const Look& look, int barWidth);

  POINT At(FigurePoint point) const {
    return {Whole(plot.left + Share(figure_.x, point.x) * (plot.right - plot.left)),
            Whole(plot.bottom - Share(figure_.y, point.y) * (plot.bottom - plot.top))};
  }
  bool HasPlot() const { return plot.right > plot.left && plot.bottom > plot.top; }

  RECT above{};
  RECT below{};
  RECT bar{};
  RECT plot{};  ///< where the axes' units lie

 private:
  const Figure& figure_;
};

Arrangement::Arrangement(const Figure& figure, const RECT& whole, const Look& look, int barWidth) : figure_(figure) {
  const int line = look.Line();
  const int gap = look.Character();
  RECT room = whole;
  InflateRect(&room, -gap / 2, -gap / 2);
  above = {room.left, room.top, room.right, room.top + line * static_cast<LONG>(Above(figure).size())};
  int remarks = 0;
  for (const std::string& remark : figure.remarks) remarks += look.HeightOf(Wide(remark), room.right - room.left);
  below = {room.left, room.bottom - remarks, room.right, room.bottom};
  if (figure.bar) {
    const LONG width = room.right - room.left;
    const LONG wanted = figure.barAlone ? width : std::min<LONG>(barWidth, Whole(width * kBarShare));
    bar = {room.right - wanted, above.bottom, room.right, below.top};
    room.right = std::max(room.left, bar.left - gap * 2);
  }
  int left = 0;
  for (const FigureTick& tick : figure.y.ticks) left = std::max(left, look.WidthOf(Wide(tick.text)));
  int right = gap * 2;
  if (!figure.x.ticks.empty()) right = std::max(right, look.WidthOf(Wide(figure.x.ticks.back().text)) / 2);
  plot = {room.left + left + gap * 3 / 2, above.bottom + line * 7 / 5, room.right - right, below.top - line * 12 / 5};
}

class Painter {
 public:
  Painter(const Canvas& canvas, const Figure& figure, const Arrangement& places)
      : canvas_(canvas), look_(canvas.Style()), figure_(figure), places_(places) {}

  void Words() const;
  void Axes() const;
  void Lines() const;
  void Markers() const;
  void Texts(const RECT& room) const;

 private:
  RECT RoomOfX(const FigureTick& tick) const;
  RECT RoomOfY(const FigureTick& tick) const;
  int Hairline() const { return std::max(1, look_.Pixels(1)); }
  Canvas::Stroke StrokeOf(LineStyle style) const;

  const Canvas& canvas_;
  const Look& look_;
  const Figure& figure_;
  const Arrangement& places_;
};

void Painter::Words() const {
  RECT row = places_.above;
  for (const Said& said : Above(figure_)) {
    row.bottom = row.top + look_.Line();
    RECT words = row;
    if (said.shape != Shape::kNone) {
      PaintShape(canvas_, {row.left, row.top, row.left + look_.Ascent(), row.bottom}, said.shape);
      words.left += look_.Ascent() + look_.Character() / 2;
    }
    canvas_.Text(words, said.text, look_.windowText, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
    row.top = row.bottom;
  }
  RECT remark = places_.below;
  for (const std::string& text : figure_.remarks) {
    const std::wstring words = Wide(text);
    canvas_.Text(remark, words, look_.windowText, DT_LEFT | DT_WORDBREAK);
    remark.top += look_.HeightOf(words, remark.right - remark.left);
  }
}

RECT Painter::RoomOfX(const FigureTick& tick) const {
  const LONG x = places_.At({tick.value, figure_.y.from}).x;
  const LONG half = (look_.WidthOf(Wide(tick.text)) + 1) / 2;
  const LONG top = places_.plot.bottom + look_.Character() / 2;
  return {x - half, top, x + half, top + look_.Line()};
}

RECT Painter::RoomOfY(const FigureTick& tick) const {
  const LONG y = places_.At({figure_.x.from, tick.value}).y;
  const LONG right = places_.plot.left - look_.Character();
  const LONG top = y - look_.Line() / 2;
  return {right - look_.WidthOf(Wide(tick.text)), top, right, top + look_.Line()};
}

void Painter::Axes() const {
  const RECT& plot = places_.plot;
  const int line = look_.Line();
  const int gap = look_.Character();
  for (const FigureTick& tick : figure_.x.ticks) {
    const LONG x = places_.At({tick.value, figure_.y.from}).x;
    canvas_.Fill({x, plot.top, x + 1, plot.bottom}, look_.grid);
    canvas_.Fill({x, plot.bottom, x + 1, plot.bottom + gap / 2}, look_.windowText);
    canvas_.Text(RoomOfX(tick), Wide(tick.text), look_.windowText, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOCLIP);
  }
  for (const FigureTick& tick : figure_.y.ticks) {
    const LONG y = places_.At({figure_.x.from, tick.value}).y;
    canvas_.Fill({plot.left, y, plot.right, y + 1}, look_.grid);
    canvas_.Fill({plot.left - gap / 2, y, plot.left, y + 1}, look_.windowText);
    canvas_.Text(RoomOfY(tick), Wide(tick.text), look_.windowText, DT_RIGHT | DT_VCENTER | DT_SINGLELINE | DT_NOCLIP);
  }
  canvas_.Fill({plot.left, plot.bottom, plot.right + 1, plot.bottom + 1}, look_.windowText);
  canvas_.Fill({plot.left, plot.top, plot.left + 1, plot.bottom + 1}, look_.windowText);
  const LONG under = plot.bottom + gap / 2 + line * 19 / 20;
  canvas_.Text({plot.left, under, plot.right, under + line}, Wide(figure_.x.caption), look_.windowText,
               DT_RIGHT | DT_VCENTER | DT_SINGLELINE);
  canvas_.Text({places_.above.left, places_.above.bottom, places_.above.right, places_.above.bottom + line},
               Wide(figure_.y.caption), look_.windowText, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
}

Canvas::Stroke Painter::StrokeOf(LineStyle style) const {
  switch (style) {
    case LineStyle::kCurve:
      return {.color = look_.accent, .width = 2 * Hairline()};
    case LineStyle::kWrong:
      return {.color = look_.alert, .width = 3 * Hairline(), .style = PS_DASH, .round = false};
    case LineStyle::kLevel:
      return {.color = look_.windowText, .width = Hairline(), .style = PS_DOT, .round = false};
    case LineStyle::kReference:
      break;
  }
  return {.color = look_.edge, .width = Hairline(), .style = PS_DASH, .round = false};
}

void Painter::Lines() const {
  const int saved = SaveDC(canvas_.Context());
  const RECT& plot = places_.plot;
  POINT corners[] = {{plot.left - 2, plot.top - 2}, {plot.right + 2, plot.bottom + 2}};
  LPtoDP(canvas_.Context(), corners, 2);
  const HRGN inside = CreateRectRgn(corners[0].x, corners[0].y, corners[1].x, corners[1].y);
  ExtSelectClipRgn(canvas_.Context(), inside, RGN_AND);
  for (const FigureLine& line : figure_.lines) {
    std::vector<POINT> points;
    for (const FigurePoint& point : line.points) points.push_back(places_.At(point));
    canvas_.Lines(points, StrokeOf(line.style));
  }
  DeleteObject(inside);
  RestoreDC(canvas_.Context(), saved);
}

void Painter::Markers() const {
  const LONG side = look_.Character();
  for (const FigureMarker& marker : figure_.markers) {
    const POINT at = places_.At(marker.at);
    const RECT square{at.x - side / 2, at.y - side / 2, at.x - side / 2 + side, at.y - side / 2 + side};
    const int width = std::max(1, static_cast<int>(side) / 6);
    switch (marker.shape) {
      case MarkerShape::kFilledSquare:
        canvas_.Fill(square, look_.accent);
        break;
      case MarkerShape::kHollowSquare: {
        RECT inside = square;
        InflateRect(&inside, -width, -width);
        canvas_.Fill(square, look_.accent);
        canvas_.Fill(inside, look_.window);
        break;
      }
      case MarkerShape::kRing: {
        RECT around = square;
        InflateRect(&around, side / 2, side / 2);
        canvas_.Ellipse(around, {.color = look_.accent, .width = width}, nullptr);
        break;
      }
      case MarkerShape::kCross: {
        const Canvas::Stroke stroke{.color = look_.alert, .width = std::max(2, static_cast<int>(side) / 4)};
        canvas_.Line({square.left, square.top}, {square.right, square.bottom}, stroke);
        canvas_.Line({square.right, square.top}, {square.left, square.bottom}, stroke);
        break;
      }
    }
  }
}

void Painter::Texts(const RECT& room) const {
  const RECT& plot = places_.plot;
  const auto at = [this](FigurePoint point) {
    const POINT place = places_.At(point);
    return FigurePoint{static_cast<double>(place.x), static_cast<double>(place.y)};
  };
  const auto found = figures::PlaceTexts(
      figure_, {.at = at,
                .widthOf = [this](std::string_view text) { return static_cast<double>(look_.WidthOf(Wide(text))); },
                .letters = static_cast<double>(look_.Ascent()),
                .character = static_cast<double>(look_.Character()),
                .plot = {static_cast<double>(plot.left), static_cast<double>(plot.top),
                         static_cast<double>(plot.right - plot.left), static_cast<double>(plot.bottom - plot.top)},
                .top = static_cast<double>(places_.above.bottom),
                .right = static_cast<double>(room.right)});
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (!found[i]) continue;
    // The height of a label is that of its letters; the line has room above them.
    const LONG top = Whole(found[i]->y + found[i]->height) - look_.Ascent();
    const LONG left = Whole(found[i]->x);
    canvas_.Text({left, top, left + Whole(found[i]->width) + 1, top + look_.Line()}, Wide(figure_.texts[i].text),
                 look_.windowText, DT_LEFT | DT_TOP | DT_SINGLELINE | DT_NOCLIP);
  }
}

int BarWidth(const Canvas& canvas, const Figure& figure) {
  return figure.bar ? BarPainter(canvas, *figure.bar).Width() : 0;
}

}  // namespace

void PaintFigure(const Canvas& canvas, const RECT& room, const Figure& figure) {
  const Look& look = canvas.Style();
  const Arrangement places(figure, room, look, BarWidth(canvas, figure));
  const Painter painter(canvas, figure, places);
  painter.Words();
  if (figure.bar && places.bar.right > places.bar.left) BarPainter(canvas, *figure.bar).Paint(places.bar);
  if (figure.barAlone && figure.bar) return;
  if (!figure.missing.empty()) {
    RECT middle{room.left, places.above.bottom, figure.bar ? places.bar.left : room.right, places.below.top};
    const std::wstring why = Wide(figure.missing);
    const int height = look.HeightOf(why, middle.right - middle.left);
    middle.top += std::max<LONG>(0, (middle.bottom - middle.top - height) / 2);
    canvas.Text(middle, why, look.windowText, DT_CENTER | DT_WORDBREAK);
    return;
  }
  if (!places.HasPlot()) return;
  painter.Axes();
  painter.Lines();
  painter.Markers();
  painter.Texts(room);
}

ControlId FieldAt(const Figure& figure, const RECT& room, const Look& look, POINT place) {
  if (!figure.missing.empty()) return {};
  const HDC screen = GetDC(nullptr);
  const Arrangement places(figure, room, look, BarWidth(Canvas(screen, look), figure));
  ReleaseDC(nullptr, screen);
  ControlId nearest;
  double least = look.Character() * 1.5;
  for (const FigureMarker& marker : figure.markers) {
    const POINT at = places.At(marker.at);
    const double distance = std::hypot(at.x - place.x, at.y - place.y);
    if (!marker.field || distance > least) continue;
    least = distance;
    nearest = marker.field;
  }
  return nearest;
}

}  // namespace htr60::view

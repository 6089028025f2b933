#include "figures/labels.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace htr60::figures {
namespace {

constexpr int kRings = 6;  // of places around a point, each further out

bool Overlap(const LabelRect& a, const LabelRect& b) {
  return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

// What is left of the line between two sides of the rectangle; false: nothing.
bool Clip(double from, double step, double low, double high, double& begin, double& end) {
  if (step == 0) return from >= low && from <= high;
  const auto [enters, leaves] = std::minmax({(low - from) / step, (high - from) / step});
  begin = std::max(begin, enters);
  end = std::min(end, leaves);
  return begin <= end;
}

bool Crosses(const LabelLine& line, const LabelRect& rect) {
  double begin = 0;
  double end = 1;
  return Clip(line.from.x, line.to.x - line.from.x, rect.x, rect.x + rect.width, begin, end) &&
         Clip(line.from.y, line.to.y - line.from.y, rect.y, rect.y + rect.height, begin, end);
}

bool Inside(const LabelRect& rect, const LabelRect& room) {
  return rect.x >= room.x && rect.y >= room.y && rect.x + rect.width <= room.x + room.width &&
         rect.y + rect.height <= room.y + room.height;
}

// Beside the point and above first, then around it.
std::array<LabelRect, 8> Ring(const LabelWish& wish, double distance) {
  const double w = wish.width;
  const double h = wish.height;
  const double after = wish.at.x + distance;
  const double before = wish.at.x - distance - w;
  const double first = wish.leftOf ? before : after;
  const double second = wish.leftOf ? after : before;
  const double above = wish.at.y - distance / 2 - h;
  const double below = wish.at.y + distance / 2;
  const double middle = wish.at.x - w / 2;
  return {{{first, above, w, h},
           {second, above, w, h},
           {first, below, w, h},
           {second, below, w, h},
           {middle, wish.at.y - distance - h, w, h},
           {middle, wish.at.y + distance, w, h},
           {first, wish.at.y - h / 2, w, h},
           {second, wish.at.y - h / 2, w, h}}};
}

class Placing {
 public:
  explicit Placing(const LabelGround& ground) : ground_(ground) {}

  std::optional<LabelRect> Place(const LabelWish& wish) {
    for (int ring = 0; ring < kRings; ++ring) {
      for (const LabelRect& rect : Ring(wish, ground_.gap * (1 + 1.5 * ring))) {
        if (Inside(rect, ground_.room) && IsFree(rect)) return Taken(rect);
      }
    }
    if (wish.canWait) return std::nullopt;
    LabelRect rect = Ring(wish, ground_.gap).front();
    const LabelRect& room = ground_.room;
    rect.x = std::max(room.x, std::min(rect.x, room.x + room.width - rect.width));
    rect.y = std::max(room.y, std::min(rect.y, room.y + room.height - rect.height));
    return Taken(rect);
  }

 private:
  bool IsFree(const LabelRect& rect) const {
    const auto on = [&](const LabelRect& other) { return Overlap(rect, other); };
    return std::none_of(taken_.begin(), taken_.end(), on) &&
           std::none_of(ground_.marks.begin(), ground_.marks.end(), on) &&
           std::none_of(ground_.lines.begin(), ground_.lines.end(),
                        [&](const LabelLine& line) { return Crosses(line, rect); });
  }
  LabelRect Taken(const LabelRect& rect) {
    taken_.push_back(rect);
    return rect;
  }

  const LabelGround& ground_;
  std::vector<LabelRect> taken_;
};

}  // namespace

std::vector<std::optional<LabelRect>> PlaceLabels(std::span<const LabelWish> wishes, const LabelGround& ground) {
  std::vector<std::optional<LabelRect>> places(wishes.size());
  Placing placing(ground);
  for (const bool waiting : {false, true}) {  // what must stand goes first
    for (std::size_t i = 0; i < wishes.size(); ++i) {
      if (wishes[i].canWait == waiting) places[i] = placing.Place(wishes[i]);
    }
  }
  return places;
}

// On the other side of an axis a text would be read as one of its numbers.
std::vector<std::optional<LabelRect>> PlaceTexts(const Figure& figure, const LabelPaper& paper) {
  std::vector<LabelWish> wishes;
  for (const FigureText& text : figure.texts) {
    wishes.push_back({.at = paper.at(text.at),
                      .width = paper.widthOf(text.text),
                      .height = paper.letters,
                      .leftOf = text.rightAligned,
                      .canWait = text.canWait});
  }
  const LabelRect& plot = paper.plot;
  const double bottom = plot.y + plot.height;
  std::vector<LabelLine> lines{{{plot.x, bottom}, {plot.x, plot.y}}, {{plot.x, bottom}, {plot.x + plot.width, bottom}}};
  for (const FigureLine& line : figure.lines) {
    for (std::size_t i = 1; i < line.points.size(); ++i) {
      lines.push_back({paper.at(line.points[i - 1]), paper.at(line.points[i])});
    }
  }
  std::vector<LabelRect> marks;
  const double side = paper.character;
  for (const FigureMarker& marker : figure.markers) {
    const FigurePoint at = paper.at(marker.at);
    marks.push_back({at.x - side / 2, at.y - side / 2, side, side});
  }
  return PlaceLabels(wishes, {.room = {plot.x, paper.top, paper.right - plot.x, bottom - paper.top},
                              .lines = lines,
                              .marks = marks,
                              .gap = paper.character});
}

}  // namespace htr60::figures

#include "figures/labels.h"

#include <gtest/gtest.h>

#include <cmath>

namespace htr60::figures {
namespace {

constexpr double kSide = 6;

// Around the plot of 400 x 300 there is room for the numbers of its corners.
constexpr LabelRect kRoom{-20, -20, 440, 340};

// Numbers of a curve's points, each with its square.
struct Curve {
  std::vector<LabelWish> wishes;
  std::vector<LabelLine> lines;
  std::vector<LabelRect> marks;

  explicit Curve(const std::vector<FigurePoint>& points) {
    for (std::size_t i = 0; i < points.size(); ++i) {
      const FigurePoint at = points[i];
      wishes.push_back({.at = at, .width = i < 9 ? 8.0 : 16.0, .height = 14, .leftOf = false, .canWait = true});
      marks.push_back({at.x - kSide / 2, at.y - kSide / 2, kSide, kSide});
      if (i > 0) lines.push_back({points[i - 1], at});
    }
  }
  std::vector<std::optional<LabelRect>> Place() const {
    return PlaceLabels(wishes, {.room = kRoom, .lines = lines, .marks = marks, .gap = 7});
  }
};

bool Apart(const LabelRect& a, const LabelRect& b) {
  return a.x + a.width <= b.x || b.x + b.width <= a.x || a.y + a.height <= b.y || b.y + b.height <= a.y;
}

// Looked at step by step, which the code does not do.
bool OnLine(const LabelRect& rect, const LabelLine& line) {
  for (int i = 0; i <= 4000; ++i) {
    const double x = line.from.x + (line.to.x - line.from.x) * i / 4000;
    const double y = line.from.y + (line.to.y - line.from.y) * i / 4000;
    if (x > rect.x && x < rect.x + rect.width && y > rect.y && y < rect.y + rect.height) return true;
  }
  return false;
}

int PlacedWell(const Curve& curve) {
  const auto places = curve.Place();
  EXPECT_EQ(places.size(), curve.wishes.size());
  int placed = 0;
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (!places[i]) continue;
    ++placed;
    for (std::size_t k = 0; k < i; ++k) EXPECT_TRUE(!places[k] || Apart(*places[i], *places[k])) << i << " on " << k;
    for (const LabelRect& mark : curve.marks) EXPECT_TRUE(Apart(*places[i], mark)) << i;
    for (const LabelLine& line : curve.lines) EXPECT_FALSE(OnLine(*places[i], line)) << i;
    EXPECT_GE(places[i]->x, kRoom.x);
    EXPECT_GE(places[i]->y, kRoom.y);
    EXPECT_LE(places[i]->x + places[i]->width, kRoom.x + kRoom.width);
    EXPECT_LE(places[i]->y + places[i]->height, kRoom.y + kRoom.height);
  }
  return placed;
}

TEST(Labels, OfARisingCurveAllStandBesideTheirPoints) {
  std::vector<FigurePoint> points;
  for (int k = 0; k <= 20; ++k) points.push_back({k * 20.0, 300 - 67 * std::sqrt(k)});
  const Curve curve(points);
  EXPECT_EQ(PlacedWell(curve), 21);
  const auto places = curve.Place();
  for (std::size_t i = 0; i < places.size(); ++i) {
    EXPECT_LT(std::hypot(places[i]->x - points[i].x, places[i]->y - points[i].y), 60) << i;
  }
}

TEST(Labels, OfManyPointsAtOnePlaceNoneCoversAnother) {
  std::vector<FigurePoint> points(20, {0, 300});
  points.push_back({400, 0});
  EXPECT_GE(PlacedWell(Curve(points)), 3);
  points.assign(21, {200, 150});
  EXPECT_GE(PlacedWell(Curve(points)), 8);
}

TEST(Labels, OfACurveThatTurnsKeepOffIt) {
  std::vector<FigurePoint> points;
  for (int k = 0; k <= 20; ++k) points.push_back({k * 20.0, k % 2 == 0 ? 280.0 : 20.0});
  EXPECT_GE(PlacedWell(Curve(points)), 15);
}

TEST(Labels, WordsThatMustStandDoAndKeepInside) {
  const LabelWish words{.at = {398, 2}, .width = 100, .height = 14};
  const std::vector<LabelLine> lines{
      {{0, 0}, {400, 0}}, {{0, 7}, {400, 7}}, {{0, 14}, {400, 14}}, {{0, 30}, {400, 30}}};
  const LabelWish number{.at = {340, 10}, .width = 8, .height = 14, .leftOf = false, .canWait = true};
  const std::vector<LabelWish> wishes{number, words};
  const auto places = PlaceLabels(wishes, {.room = {0, 0, 400, 34}, .lines = lines, .gap = 7});
  ASSERT_TRUE(places[1]);
  EXPECT_LE(places[1]->x + places[1]->width, 400);
  EXPECT_FALSE(places[0]) << "there is no place off the lines";
}

TEST(Labels, OfAPointInTheCornerStandBetweenTheAxes) {
  Figure figure;
  figure.lines.push_back({.points = {{0, 0}, {10, 10}}});
  figure.markers.push_back({.at = {0, 0}});
  figure.texts.push_back({.at = {0, 0}, .text = "1", .canWait = true});
  // As narrow as this the curve takes the place above the point.
  const LabelPaper paper{.at =
                             [](FigurePoint point) {
                               return FigurePoint{40 + point.x * 40, 300 - point.y * 30};
                             },
                         .widthOf = [](std::string_view text) { return 8.0 * static_cast<double>(text.size()); },
                         .letters = 14,
                         .character = 7,
                         .plot = {40, 0, 400, 300},
                         .top = -20,
                         .right = 500};
  const auto places = PlaceTexts(figure, paper);
  ASSERT_EQ(places.size(), 1U);
  ASSERT_TRUE(places[0]);
  EXPECT_GE(places[0]->x, 40);
  EXPECT_LE(places[0]->y + places[0]->height, 300);
}

}  // namespace
}  // namespace htr60::figures

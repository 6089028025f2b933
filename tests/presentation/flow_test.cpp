#include "presentation/flow.h"

#include <gtest/gtest.h>

#include <vector>

namespace htr60::presentation {
namespace {

// A group of that width whose text wraps: half the width, twice the height.
FlowItem Group(int least, int wanted, int height, FlowItem more = {}) {
  more.least = least;
  more.wanted = wanted;
  more.heightOf = [wanted, height](int width) { return width >= wanted ? height : 2 * height; };
  return more;
}

struct Case {
  const char* name;
  std::vector<FlowItem> items;
  FlowRoom room;
  std::vector<FlowRect> rects;
  int height;
};

TEST(Flow, PlacesGroups) {
  const FlowItem beside{.beside = true};
  const FlowItem fills{.fills = true};
  const std::vector<Case> kCases = {
      {"nothing", {}, {.width = 100, .gap = 10}, {}, 0},
      {"each ends with its widest row",
       {Group(50, 80, 20), Group(50, 60, 30)},
       {.width = 400, .gap = 10},
       {{0, 0, 80, 20}, {0, 30, 60, 30}},
       60},
      {"beside, with what is left over left free",
       {Group(50, 80, 20), Group(50, 60, 30, beside)},
       {.width = 400, .gap = 10},
       {{0, 0, 80, 20}, {90, 0, 60, 30}},
       30},
      {"both give way in proportion",
       {Group(50, 90, 20), Group(60, 80, 30, beside)},  // 120 at least, 180 wanted, 150: half of the way
       {.width = 150, .gap = 10},
       {{0, 0, 70, 40}, {80, 0, 70, 60}},
       60},
      {"below where the least does not fit",
       {Group(50, 90, 20), Group(60, 80, 30, beside)},
       {.width = 119, .gap = 10},
       {{0, 0, 90, 20}, {0, 30, 80, 30}},
       60},
      {"as narrow as the room where even one does not fit",
       {Group(50, 90, 20)},
       {.width = 40, .gap = 10},
       {{0, 0, 40, 40}},
       40},
      {"a new line below the deepest column",
       {Group(10, 20, 20), Group(10, 20, 50, beside), Group(10, 20, 5), Group(10, 20, 7, {.separate = true})},
       {.width = 100, .gap = 10},
       {{0, 0, 20, 20}, {30, 0, 20, 50}, {30, 60, 20, 5}, {0, 75, 20, 7}},
       82},
      {"what fills takes what is left over",
       {Group(10, 20, 20), Group(10, 20, 50, {.beside = true, .fills = true})},
       {.width = 100, .gap = 10},
       {{0, 0, 20, 20}, {30, 0, 70, 50}},
       50},
      {"and in its column alone",
       {Group(10, 20, 20), Group(10, 50, 20, fills)},
       {.width = 100, .gap = 10},
       {{0, 0, 20, 20}, {0, 30, 100, 20}},
       50},
      {"roomy stands beside only where none gives way",
       {Group(50, 90, 20), Group(10, 80, 30, {.beside = true, .roomy = true})},
       {.width = 179, .gap = 10},
       {{0, 0, 90, 20}, {0, 30, 80, 30}},
       60},
      {"roomy beside",
       {Group(50, 90, 20), Group(10, 80, 30, {.beside = true, .roomy = true})},
       {.width = 180, .gap = 10},
       {{0, 0, 90, 20}, {100, 0, 80, 30}},
       30},
      {"the last takes the height that is left",
       {Group(50, 90, 20), Group(10, 80, 30)},
       {.width = 180, .height = 200, .gap = 10, .stretchLast = true},
       {{0, 0, 90, 20}, {0, 30, 80, 170}},
       60},
  };
  for (const Case& one : kCases) {
    SCOPED_TRACE(one.name);
    const Flow flow = LayOut(one.items, one.room);
    EXPECT_EQ(flow.height, one.height);
    ASSERT_EQ(flow.rects.size(), one.rects.size());
    for (std::size_t i = 0; i < one.rects.size(); ++i) {
      const FlowRect& r = flow.rects[i];
      EXPECT_EQ(r, one.rects[i]) << i << ": " << r.x << ' ' << r.y << ' ' << r.width << ' ' << r.height;
    }
    EXPECT_TRUE(flow.arrows.empty());
  }
}

TEST(Flow, ArrowsLeadDownTheLeftColumn) {
  const std::vector<FlowItem> items = {Group(50, 80, 20), Group(50, 60, 30), Group(50, 70, 40),
                                       Group(10, 20, 90, {.beside = true})};
  const Flow flow = LayOut(items, {.width = 400, .gap = 10, .arrowsAt = 25});
  ASSERT_EQ(flow.arrows.size(), 2U);
  const FlowArrow& second = flow.arrows[1];  // from 60 to 70
  EXPECT_EQ(second.left.x, 19);
  EXPECT_EQ(second.left.y, 60);
  EXPECT_EQ(second.right.x, 31);
  EXPECT_EQ(second.right.y, 60);
  EXPECT_EQ(second.tip.x, 25);
  EXPECT_EQ(second.tip.y, 70);
}

TEST(Flow, WidthsOfTheWhole) {
  const std::vector<FlowItem> items = {Group(50, 80, 20), Group(40, 60, 30, {.beside = true}),
                                       Group(70, 120, 40, {.separate = true})};
  EXPECT_EQ(WantedWidth(items, 10), 150);
  EXPECT_EQ(LeastWidth(items), 70);
}

TEST(Flow, TheCaptionColumnIsThatOfAllTabs) {
  const LayoutGroup left{.tab = 0};
  const LayoutGroup right{.tab = 0, .beside = true};
  const LayoutGroup other{.tab = 1};
  const LayoutGroup below{.tab = 1, .separate = true};
  const LayoutGroup inner{.tab = 1, .innerTab = 1, .beside = true};
  EXPECT_EQ(
      CaptionWidths(std::vector<CaptionMeasure>{{&left, 40}, {&right, 90}, {&other, 60}, {&below, -1}, {&inner, 30}}),
      (std::vector<int>{60, 90, 60, 0, 90}));
}

}  // namespace
}  // namespace htr60::presentation

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "figures/figure.h"

/// What every figure has to hold, whatever stands in the fields.
namespace htr60 {

inline constexpr const char* kNastyTexts[] = {"0",       "1.7E308",   "-1.7E308", "1.79769313486231E308",
                                              "1E300",   "-1E300",    "1E301",    "1E-300",
                                              "-1E-308", "4.94E-324", "1E-320",   "1E999",
                                              "-1E9999", "1E-99999",  "nan",      "inf",
                                              "-inf",    "",          "x",        "&HFF",
                                              "1E",      "--1",       "0.1E-312", "100.00000000000001",
                                              "99.9999", "1E15",      "1E15.5",   "123456789012345678901234567890"};

inline void ExpectSound(const FigureAxis& axis) {
  ASSERT_TRUE(std::isfinite(axis.from) && std::isfinite(axis.to));
  EXPECT_LT(axis.from, axis.to);
  EXPECT_TRUE(std::isfinite(axis.to - axis.from));
  ASSERT_GE(axis.ticks.size(), 1U);
  EXPECT_LE(axis.ticks.size(), 21U);
  for (std::size_t i = 0; i < axis.ticks.size(); ++i) {
    EXPECT_GE(axis.ticks[i].value, axis.from);
    EXPECT_LE(axis.ticks[i].value, axis.to);
    EXPECT_TRUE(i == 0 || axis.ticks[i].value > axis.ticks[i - 1].value) << i;
    EXPECT_FALSE(axis.ticks[i].text.empty());
  }
}

inline void ExpectSound(const FigureBar& bar) {
  ASSERT_TRUE(std::isfinite(bar.axis.to - bar.axis.from));
  EXPECT_LT(bar.axis.from, bar.axis.to);
  EXPECT_LT(bar.from, bar.to);
  EXPECT_LE(bar.axis.from, bar.from);
  EXPECT_GE(bar.axis.to, bar.to);
  const auto within = [&](double at) { return at >= bar.from && at <= bar.to; };
  for (const BarMark& mark : bar.marks) EXPECT_TRUE(within(mark.at)) << mark.text;
  for (const BarSpan& span : bar.spans) EXPECT_TRUE(within(span.from) && within(span.to)) << span.from;
  EXPECT_TRUE(!bar.pointer || within(bar.pointer->at));
}

inline void ExpectSound(const Figure& figure) {
  if (figure.bar) ExpectSound(*figure.bar);
  if (!figure.missing.empty()) return;
  ExpectSound(figure.x);
  ExpectSound(figure.y);
  const auto on = [](const FigureAxis& axis, double value) {
    const double share = (value - axis.from) / (axis.to - axis.from);
    return share > -1e-9 && share < 1 + 1e-9;
  };
  const auto within = [&](const FigurePoint& at) { return on(figure.x, at.x) && on(figure.y, at.y); };
  for (const FigureLine& line : figure.lines) {
    for (const FigurePoint& point : line.points) EXPECT_TRUE(within(point)) << point.x << ' ' << point.y;
  }
  for (const FigureMarker& marker : figure.markers) EXPECT_TRUE(within(marker.at)) << marker.at.x << ' ' << marker.at.y;
  for (const FigureText& text : figure.texts) EXPECT_TRUE(within(text.at)) << text.text;
}

inline int Count(const Figure& figure, MarkerShape shape) {
  return static_cast<int>(std::count_if(figure.markers.begin(), figure.markers.end(),
                                        [&](const FigureMarker& marker) { return marker.shape == shape; }));
}

}  // namespace htr60

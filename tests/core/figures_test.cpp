#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "automate/driver.h"
#include "core/figure_checks.h"
#include "figures/axis.h"
#include "figures/figure.h"
#include "pages/table_points.h"

namespace htr60 {
namespace {

using automation::Driver;

struct Fixture {
  Driver driver{Driver::Captured()};
  Form& form = driver.Of().Control()->form;
  std::vector<ControlId> unwritten;
  bool known = true;

  void Points(const std::vector<std::pair<const char*, const char*>>& points) {
    form.cmbNrPoints.SetText(std::to_string(points.size()));
    for (std::size_t i = 0; i < points.size(); ++i) {
      form.At(pages::kTablePoints[i].x).SetText(points[i].first);
      form.At(pages::kTablePoints[i].y).SetText(points[i].second);
    }
  }
  Figure Of(FigureKind kind, ControlId focus = {}) {
    return ComputeFigure(kind, {.form = form,
                                .decimalSeparator = '.',
                                .known = [this](ControlId) { return known; },
                                .unwritten =
                                    [this](ControlId control) {
                                      return std::find(unwritten.begin(), unwritten.end(), control) != unwritten.end();
                                    },
                                .focus = focus});
  }
};

TEST(LinearizationFigure, NamesWhatIsOutOfOrder) {
  struct Case {
    std::vector<std::pair<const char*, const char*>> points;
    std::vector<std::string> remarks;
    int crosses;
  };
  const Case kCases[] = {
      {{{"0", "0"}, {"50", "25.5"}, {"100", "100"}}, {}, 0},
      {{{"0", "0"}, {"50", "0"}, {"100", "100"}}, {}, 0},  // a level step in Y is no fault
      {{{"0", "0"}, {"50", "20"}, {"50", "30"}, {"100", "40"}}, {"Check: X does not rise from point 2 to point 3."}, 1},
      {{{"0", "0"}, {"50", "20"}, {"60", "10"}, {"55", "40"}, {"54", "50"}},
       {"Check: Y turns between point 2 and point 3, and 2 more."},
       3},
      {{{"100", "0"}, {"50", "20"}, {"60", "30"}}, {"Check: X does not fall from point 2 to point 3."}, 1},
      {{{"0", "100"}, {"50", "20"}, {"60", "10"}}, {"Check: the device takes rising curves only."}, 0},
      {{{"0", "0"}, {"x", "20"}, {"60", "10"}, {"70", "12"}}, {"Point 2: no number."}, 0},
  };
  for (const Case& c : kCases) {
    Fixture f;
    f.Points(c.points);
    const Figure figure = f.Of(FigureKind::kLinearization);
    EXPECT_EQ(figure.remarks, c.remarks) << c.points.size();
    EXPECT_EQ(Count(figure, MarkerShape::kCross), c.crosses);
  }
}

TEST(LinearizationFigure, AMissingPointBreaksTheLine) {
  Fixture f;
  f.Points({{"0", "0"}, {"10", "1"}, {"", "2"}, {"30", "3"}, {"40", "4"}});
  const Figure figure = f.Of(FigureKind::kLinearization);
  EXPECT_EQ(figure.lines.size(), 2U);
  EXPECT_EQ(Count(figure, MarkerShape::kFilledSquare), 4);
}

TEST(LinearizationFigure, TellsWrittenFromUnwrittenAndFocused) {
  Fixture f;
  f.Points({{"0", "0"}, {"10", "1"}, {"20", "2"}});
  f.form.txtParameter(45).SetText("New Table is Valid");
  f.unwritten = {pages::kTablePoints[1].y};
  const Figure figure = f.Of(FigureKind::kLinearization, pages::kTablePoints[2].x);
  EXPECT_EQ(Count(figure, MarkerShape::kHollowSquare), 1);
  EXPECT_EQ(Count(figure, MarkerShape::kRing), 1);
  EXPECT_EQ(figure.verdict, "New Table is Valid");
  EXPECT_EQ(figure.above, std::vector<std::string>{"Not written yet: the status belongs to the curve in the device."});
  f.known = false;
  EXPECT_FALSE(f.Of(FigureKind::kLinearization).missing.empty());
}

TEST(SquareRootFigure, DrawsCutOffStraightPartAndRoot) {
  Fixture f;
  f.driver.Init();
  f.driver.Activate("Pressure/Flow");
  f.form.cmbLinearizationType.SetText("Square Root");
  f.form.txtParameter(37).SetText("10.000");
  f.form.txtParameter(40).SetText("5.000");
  const Figure figure = f.Of(FigureKind::kSquareRoot);
  const auto curve = std::find_if(figure.lines.begin(), figure.lines.end(),
                                  [](const FigureLine& line) { return line.style == LineStyle::kCurve; });
  ASSERT_NE(curve, figure.lines.end());
  // 5 % of flow lies on the straight part, at half the pressure of the corner (1 %).
  ASSERT_GE(curve->points.size(), 5U);
  EXPECT_DOUBLE_EQ(curve->points[1].x, 0.5);
  EXPECT_DOUBLE_EQ(curve->points[2].y, 5);
  EXPECT_DOUBLE_EQ(curve->points[3].x, 1);
  EXPECT_DOUBLE_EQ(curve->points[3].y, 10);
  EXPECT_DOUBLE_EQ(curve->points.back().y, 100);
  for (std::size_t i = 4; i < curve->points.size(); ++i) {
    EXPECT_NEAR(curve->points[i].y * curve->points[i].y, 100 * curve->points[i].x, 1e-6);
  }
  EXPECT_TRUE(figure.remarks.empty());

  f.form.txtParameter(40).SetText("120");
  EXPECT_EQ(f.Of(FigureKind::kSquareRoot).remarks,
            std::vector<std::string>{"Check: Low Flow Cut Off (%) is no number from 0 to 100."});
  f.form.cmbLinearizationType.SetText("No Linearization.");
  EXPECT_EQ(f.Of(FigureKind::kSquareRoot).above,
            std::vector<std::string>{"The linearization now chosen does not use this curve."});
}

// ---- numbers at the ends of what a number can be

TEST(Axis, IsSoundBetweenAnyTwoNumbers) {
  using Limits = std::numeric_limits<double>;
  const double kEnds[] = {0,
                          1,
                          100,
                          -100,
                          1 + 1e-11,
                          1 + 1e-15,
                          1e15,
                          1e300,
                          1e-9,
                          1e308,
                          -1e-308,
                          1e-311,
                          1e-320,
                          5e-324,
                          Limits::max(),
                          Limits::lowest(),
                          HUGE_VAL,
                          -HUGE_VAL,
                          Limits::quiet_NaN()};
  for (const double from : kEnds) {
    for (const double to : kEnds) {
      SCOPED_TRACE(testing::Message() << from << " to " << to);
      const FigureAxis axis = figures::RoundAxis("X", from, to, '.');
      ExpectSound(axis);
      EXPECT_GE(axis.ticks.size(), 2U);
    }
  }
}

TEST(LinearizationFigure, IsSoundWhateverStandsInTheFields) {
  Fixture f;
  for (const char* x : kNastyTexts) {
    for (const char* y : kNastyTexts) {
      SCOPED_TRACE(testing::Message() << x << ", " << y);
      f.Points({{"0", "0"}, {x, y}, {y, x}, {"100", "100"}});
      const Figure figure = f.Of(FigureKind::kLinearization);
      EXPECT_EQ(figure.missing, "");
      ExpectSound(figure);
      f.Points({{x, y}, {x, y}});
      ExpectSound(f.Of(FigureKind::kLinearization));
      f.form.cmbNrPoints.SetText(x);
      ExpectSound(f.Of(FigureKind::kLinearization));
    }
  }
}

TEST(LinearizationFigure, SaysWhatIsTooLargeToBeDrawn) {
  Fixture f;
  f.Points({{"0", "0"}, {"50", "1.7E308"}, {"-1.7E308", "60"}, {"100", "1E999"}, {"110", "1E300"}});
  EXPECT_EQ(f.Of(FigureKind::kLinearization).remarks,
            (std::vector<std::string>{"Point 2: too large to be drawn.", "Point 3: too large to be drawn.",
                                      "Point 4: no number."}));
  f.Points({{"1.7E308", "0"}, {"x", "0"}});
  EXPECT_EQ(f.Of(FigureKind::kLinearization).missing, "No point can be drawn.");
  f.Points({{"y", "0"}, {"x", "0"}});
  EXPECT_EQ(f.Of(FigureKind::kLinearization).missing, "No point is a number.");
}

TEST(SquareRootFigure, IsSoundWhateverStandsInTheFields) {
  Fixture f;
  for (const char* linear : kNastyTexts) {
    for (const char* cutOff : kNastyTexts) {
      SCOPED_TRACE(testing::Message() << linear << ", " << cutOff);
      f.form.txtParameter(37).SetText(linear);
      f.form.txtParameter(40).SetText(cutOff);
      const Figure figure = f.Of(FigureKind::kSquareRoot);
      EXPECT_EQ(figure.missing, "");
      ExpectSound(figure);
    }
  }
}

}  // namespace
}  // namespace htr60

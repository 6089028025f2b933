#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "automate/driver.h"
#include "core/figure_checks.h"
#include "figures/figure.h"

namespace htr60 {
namespace {

using automation::Driver;
using Strings = std::vector<std::string>;

constexpr TextId kLowLimit = id::txtParameter(101);
constexpr TextId kHighLimit = id::txtParameter(97);
constexpr TextId kLower = id::txtParameter(103);
constexpr TextId kUpper = id::txtParameter(95);
constexpr TextId kMinSpan = id::txtParameter(102);
constexpr TextId kLive = id::txtParameter(93);
constexpr TextId kStatus = id::txtParameter(307);
constexpr TextId kResult = id::txtParameter(43);

struct Fixture {
  Driver driver{Driver::Captured()};
  Form& form = driver.Of().Control()->form;
  std::set<std::uint16_t> unwritten;
  std::set<std::uint16_t> hinted;
  std::string lastRead = "10:42:31";

  /// As an answer of the lower and upper points leaves the fields.
  void Read() {
    Set({{kLowLimit, "-50.000"},
         {kMinSpan, "5.000"},
         {kLower, "0.000"},
         {kLive, "10.250"},
         {kStatus, "Uncertain & Non-specific"},
         {kResult, "Good"},
         {kHighLimit, "50.000"},
         {kUpper, "40.000"}});
    form.lbArray(104).SetText("kPa");
  }
  void Set(const std::vector<std::pair<TextId, const char*>>& texts) {
    for (const auto& [field, text] : texts) form.At(field).SetText(text);
  }
  Figure Draw(char separator = '.') {
    return ComputeFigure(FigureKind::kCalibration,
                         {.form = form,
                          .decimalSeparator = separator,
                          .known = [](ControlId) { return false; },  // no node was activated since the last read
                          .unwritten = [this](ControlId control) { return unwritten.count(control.ordinal) != 0; },
                          .focus = {},
                          .hinted = [this](ControlId control, double) { return hinted.count(control.ordinal) != 0; },
                          .lastRead = lastRead});
  }
};

std::vector<std::pair<double, double>> Spans(const Figure& figure, BarSpanStyle style) {
  std::vector<std::pair<double, double>> spans;
  for (const BarSpan& span : figure.bar->spans) {
    if (span.style == style) spans.emplace_back(span.from, span.to);
  }
  return spans;
}

TEST(CalibrationFigure, NothingIsDrawnBeforeTheLimitsWereRead) {
  Fixture f;
  const std::string missing = "No values read yet: open Lower/Upper first.";
  EXPECT_EQ(f.Draw().missing, missing);
  EXPECT_EQ(f.Draw().sentence, missing);
  EXPECT_EQ(f.Draw().above, Strings{});
  // An answer that ended half-way has brought one limit alone.
  f.Set({{kLowLimit, "-50.000"}, {kLower, "0.000"}});
  EXPECT_EQ(f.Draw().missing, missing);
  EXPECT_FALSE(f.Draw().bar);
  f.Set({{kHighLimit, "50.000"}});
  EXPECT_EQ(f.Draw().missing, "");
}

TEST(CalibrationFigure, StandsBetweenTheLimitsWhicheverNodeWasActivatedSince) {
  Fixture f;
  f.Read();
  const Figure figure = f.Draw();
  ASSERT_TRUE(figure.bar);
  const FigureBar& bar = *figure.bar;
  EXPECT_TRUE(figure.barAlone);
  EXPECT_EQ(bar.from, -50);
  EXPECT_EQ(bar.to, 50);
  EXPECT_LT(bar.axis.from, bar.from) << "there is room for what lies outside";
  EXPECT_GT(bar.axis.to, bar.to);
  EXPECT_EQ(bar.axis.caption, "Pressure (kPa)");
  Strings ticks;
  for (const FigureTick& tick : bar.axis.ticks) ticks.push_back(tick.text);
  EXPECT_EQ(ticks, (Strings{"-50.000", "-40", "-20", "0", "20", "40", "50.000"}));
  ASSERT_EQ(bar.marks.size(), 2U);
  EXPECT_EQ(bar.marks[0].text, "Lower 0.000");
  EXPECT_EQ(bar.marks[1].text, "Upper 40.000");
  EXPECT_EQ(bar.marks[1].at, 40);
  EXPECT_FALSE(bar.marks[1].unwritten);
  EXPECT_EQ(Spans(figure, BarSpanStyle::kBracket), (std::vector<std::pair<double, double>>{{0, 5}}));
  ASSERT_TRUE(bar.pointer);
  EXPECT_EQ(bar.pointer->at, 10.25);
  EXPECT_EQ(bar.pointer->text, "10.250");
  EXPECT_EQ(bar.pointer->status, "Uncertain");
  EXPECT_EQ(figure.verdictCaption, "Calibration Result");
  EXPECT_EQ(figure.verdict, "Good");
  EXPECT_EQ(figure.verdictRole, RowRole::kVerdict);
  EXPECT_EQ(figure.above, Strings{"As last read 10:42:31"});
  EXPECT_EQ(figure.remarks, Strings{});
  EXPECT_EQ(
      figure.sentence,
      "Calibration points between the sensor limits -50.000 and 50.000 kPa: Lower 0.000, Upper 40.000. Live value "
      "10.250, Uncertain.");
}

TEST(CalibrationFigure, APointNotWrittenIsHollow) {
  Fixture f;
  f.Read();
  f.unwritten = {ControlId{kUpper}.ordinal};
  const Figure figure = f.Draw();
  EXPECT_FALSE(figure.bar->marks[0].unwritten);
  EXPECT_TRUE(figure.bar->marks[1].unwritten);
}

TEST(CalibrationFigure, SaysWhatIsWrongWithThePoints) {
  using Pairs = std::vector<std::pair<double, double>>;
  struct Case {
    const char* lower;
    const char* upper;
    Strings remarks;
    Pairs wrong;
  };
  const std::string below = "Check: Upper does not lie above Lower.";
  const Case cases[] = {
      {"10", "40", {}, {}},
      {"10", "13", {"Check: the points are 3.000 apart, Cal Min Span is 5.000."}, Pairs{{10, 13}}},
      {"37.4", "42.4", {}, {}},  // 5 apart, though not in binary
      {"0.1", "5.0995", {"Check: the points are 5.000 apart, Cal Min Span is 5.000."}, Pairs{{0.1, 5.0995}}},
      {"10", "10", {below}, Pairs{{10, 10}}},
      {"20", "-20", {below}, Pairs{{20, -20}}},
      {"-52", "40", {"Check: Lower lies outside the sensor limits."}, Pairs{{-50, -52}}},
      {"0", "55", {"Check: Upper lies outside the sensor limits."}, Pairs{{50, 55}}},
      {"54",
       "-55",
       {below, "Check: Lower lies outside the sensor limits.", "Check: Upper lies outside the sensor limits."},
       Pairs{{54, -55}, {50, 54}, {-50, -55}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.lower) + " to " + c.upper);
    Fixture f;
    f.Read();
    f.Set({{kLower, c.lower}, {kUpper, c.upper}});
    const Figure figure = f.Draw();
    EXPECT_EQ(figure.remarks, c.remarks);
    EXPECT_EQ(Spans(figure, BarSpanStyle::kWrong), c.wrong);
  }
}

TEST(CalibrationFigure, FarOutsideItStandsAtTheEndWithAnArrow) {
  Fixture f;
  f.Read();
  f.Set({{kLower, "-5000"}, {kLive, "70"}});
  const FigureBar bar = *f.Draw().bar;
  EXPECT_EQ(bar.marks[0].at, bar.axis.from);
  EXPECT_EQ(bar.marks[0].reach, BarReach::kBelow);
  EXPECT_EQ(bar.pointer->at, bar.axis.to);
  EXPECT_EQ(bar.pointer->reach, BarReach::kAbove);
  f.Set({{kLower, "-51"}});
  EXPECT_EQ(f.Draw().bar->marks[0].reach, BarReach::kWithin) << "in the hatched end";
}

TEST(CalibrationFigure, WhatIsNoNumberIsLeftOutAndNamedAfterTheChecks) {
  Fixture f;
  f.Read();
  f.Set({{kLower, "x"}, {kUpper, "55"}});
  Figure figure = f.Draw();
  EXPECT_EQ(figure.bar->marks.size(), 1U);
  EXPECT_TRUE(Spans(figure, BarSpanStyle::kBracket).empty());
  EXPECT_EQ(figure.remarks, (Strings{"Check: Upper lies outside the sensor limits.", "Lower: no number."}));
  f.Read();
  f.Set({{kLive, "1E301"}});
  f.hinted = {ControlId{kMinSpan}.ordinal};
  figure = f.Draw();
  EXPECT_FALSE(figure.bar->pointer);
  EXPECT_EQ(figure.remarks, (Strings{"Cal Min Span: no number.", "Value: too large to be drawn."}));
  f.Set({{kLowLimit, "x"}});
  figure = f.Draw();
  EXPECT_EQ(figure.missing, "The sensor limits cannot be drawn.");
  EXPECT_EQ(figure.remarks.front(), "Lower Sensor Limit: no number.");
  f.Set({{kLowLimit, "50.000"}});
  EXPECT_EQ(f.Draw().missing, "The upper sensor limit does not lie above the lower one.");
}

TEST(CalibrationFigure, ReadsAndWritesTheOperatorsLocale) {
  Fixture f;
  f.Read();
  f.Set({{kLowLimit, "-50,000"}, {kHighLimit, "50,000"}, {kLower, "1,5"}, {kUpper, "4,5"}, {kMinSpan, "5,000"}});
  EXPECT_EQ(f.Draw(',').remarks.front(), "Check: the points are 3,000 apart, Cal Min Span is 5,000.");
}

TEST(CalibrationFigure, IsSoundWhateverStandsInTheFields) {
  Fixture f;
  f.Read();
  const auto draw = [&] {
    const Figure figure = f.Draw();
    EXPECT_EQ(figure.bar.has_value(), figure.missing.empty());
    if (!figure.bar) return;
    const FigureBar& bar = *figure.bar;
    ExpectSound(bar.axis);
    EXPECT_LT(bar.from, bar.to);
    const auto within = [&](double at) { return at >= bar.axis.from && at <= bar.axis.to; };
    EXPECT_TRUE(within(bar.from) && within(bar.to));
    for (const BarMark& mark : bar.marks) EXPECT_TRUE(within(mark.at)) << mark.text;
    for (const BarSpan& span : bar.spans) EXPECT_TRUE(within(span.from) && within(span.to)) << span.from;
    EXPECT_TRUE(!bar.pointer || within(bar.pointer->at));
  };
  for (const char* one : kNastyTexts) {
    for (const char* other : kNastyTexts) {
      SCOPED_TRACE(testing::Message() << one << ", " << other);
      f.Read();
      f.Set({{kLower, one}, {kUpper, other}, {kMinSpan, other}, {kLive, one}});
      draw();
      f.Set({{kLowLimit, one}, {kHighLimit, other}});
      draw();
      f.Set({{kLowLimit, other}, {kHighLimit, one}});
      draw();
    }
  }
}

}  // namespace
}  // namespace htr60

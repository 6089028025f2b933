#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "automate/driver.h"
#include "core/figure_checks.h"
#include "figures/figure.h"

namespace htr60 {
namespace {

using automation::Driver;
using Strings = std::vector<std::string>;

// Fields of the figure, by what they are.
constexpr TextId kPvUpper = id::txtParameter(64);
constexpr TextId kPvLower = id::txtParameter(63);
constexpr TextId kOutUpper = id::txtParameter(129);
constexpr TextId kOutLower = id::txtParameter(130);
constexpr TextId kUpperAlarm = id::txtParameter(120);
constexpr TextId kUpperWarning = id::txtParameter(121);
constexpr TextId kLowerAlarm = id::txtParameter(122);
constexpr TextId kLowerWarning = id::txtParameter(123);
constexpr TextId kHysteresis = id::txtParameter(124);
constexpr TextId kOutput = id::txtParameter(125);
constexpr TextId kAll[] = {kPvUpper,      kPvLower,    kOutUpper,     kOutLower,   kUpperAlarm,
                           kUpperWarning, kLowerAlarm, kLowerWarning, kHysteresis, kOutput};

struct Fixture {
  Driver driver{Driver::Captured()};
  Form& form = driver.Of().Control()->form;
  std::set<std::uint16_t> unknown;
  std::set<std::uint16_t> unwritten;
  std::set<std::uint16_t> hinted;

  Fixture() {
    const std::pair<TextId, const char*> kTexts[] = {
        {kPvUpper, "20.000"},    {kPvLower, "0.000"},    {kOutUpper, "100.000"},        {kOutLower, "0.000"},
        {kUpperAlarm, "95.000"}, {kLowerAlarm, "5.000"}, {kUpperWarning, "90.000"},     {kLowerWarning, "10.000"},
        {kHysteresis, "2.000"},  {kOutput, "40.000"},    {id::txtParameter(302), "kPa"}};
    for (const auto& [field, text] : kTexts) form.At(field).SetText(text);
    form.lbArray(201).SetText("%");
    form.cmbStatusAIModeBlock.SetText("Uncertain & Substitute");
    form.ListAIAlarm.AddRow("Upper Limit Alarm ");
    form.ListAIAlarm.AddRow("Upper Limit Warning ");
  }
  void Set(const std::vector<std::pair<TextId, const char*>>& texts) {
    for (const auto& [field, text] : texts) form.At(field).SetText(text);
  }
  Figure Draw(char separator = '.') {
    const auto in = [](const std::set<std::uint16_t>& fields) {
      return [&fields](ControlId control) { return fields.count(control.ordinal) != 0; };
    };
    return ComputeFigure(FigureKind::kAnalogInput,
                         {.form = form,
                          .decimalSeparator = separator,
                          .known = [this](ControlId control) { return unknown.count(control.ordinal) == 0; },
                          .unwritten = in(unwritten),
                          .focus = {},
                          .hinted = [this](ControlId control, double) { return hinted.count(control.ordinal) != 0; }});
  }
};

std::uint16_t Of(ControlId control) { return control.ordinal; }

Strings TickTexts(const FigureAxis& axis) {
  Strings texts;
  for (const FigureTick& tick : axis.ticks) texts.push_back(tick.text);
  return texts;
}

std::vector<BarSpan> Spans(const FigureBar& bar, BarSpanStyle style) {
  std::vector<BarSpan> spans;
  std::copy_if(bar.spans.begin(), bar.spans.end(), std::back_inserter(spans),
               [&](const BarSpan& span) { return span.style == style; });
  return spans;
}

TEST(AnalogInputFigure, DrawsTheScaleWithItsEndsWrittenOut) {
  Fixture f;
  const Figure figure = f.Draw();
  EXPECT_EQ(figure.x.caption, "PV (kPa)");
  EXPECT_EQ(figure.y.caption, "Output (%)");
  EXPECT_EQ(TickTexts(figure.x), (Strings{"0.000", "20.000"}));
  EXPECT_EQ(TickTexts(figure.y), (Strings{"0.000", "100.000"}));
  ASSERT_EQ(figure.lines.size(), 1U);
  EXPECT_EQ(figure.lines[0].points[0].x, 0);
  EXPECT_EQ(figure.lines[0].points[0].y, 0);
  EXPECT_EQ(figure.lines[0].points[1].x, 20);
  EXPECT_EQ(figure.lines[0].points[1].y, 100);
  EXPECT_EQ(Count(figure, MarkerShape::kFilledSquare), 2);
  EXPECT_TRUE(figure.remarks.empty());
  EXPECT_EQ(figure.alarms, (Strings{"Upper Limit Alarm ", "Upper Limit Warning "}));
  EXPECT_EQ(figure.sentence,
            "PV 0.000 to 20.000 kPa gives output 0.000 to 100.000 %. Limits: Upper Limit Alarm 95.000, Upper Limit "
            "Warning 90.000, Lower Limit Warning 10.000, Lower Limit Alarm 5.000. Output 40.000, Uncertain.");
  ExpectSound(figure);
}

TEST(AnalogInputFigure, AFallingScaleIsLegal) {
  Fixture f;
  f.Set({{kOutUpper, "-100"}, {kOutLower, "50"}, {kPvUpper, "-1"}, {kPvLower, "4"}});
  const Figure figure = f.Draw();
  EXPECT_TRUE(figure.remarks.empty());
  ASSERT_EQ(figure.lines.size(), 1U);
  EXPECT_EQ(figure.lines[0].points[0].x, 4);
  EXPECT_EQ(figure.lines[0].points[0].y, 50);
  EXPECT_EQ(TickTexts(figure.x), (Strings{"-1", "4"}));
  ASSERT_TRUE(figure.bar);
  EXPECT_EQ(figure.bar->from, -100);
  EXPECT_EQ(figure.bar->to, 50);
  EXPECT_EQ(TickTexts(figure.bar->axis), (Strings{"-100", "50"}));
  ExpectSound(figure);
}

TEST(AnalogInputFigure, EqualEndsHaveNoLine) {
  struct Case {
    TextId field;
    const char* text;
    bool bar;
  };
  for (const Case& c : {Case{kPvUpper, "0", true}, Case{kOutUpper, "0", false}}) {
    Fixture f;
    f.Set({{c.field, c.text}});
    const Figure figure = f.Draw();
    EXPECT_TRUE(figure.lines.empty());
    EXPECT_EQ(figure.remarks, Strings{"Check: upper and lower value are equal."});
    EXPECT_EQ(figure.bar.has_value(), c.bar);
    ExpectSound(figure);
  }
}

TEST(AnalogInputFigure, BracketsOfTheHysteresisLeadInside) {
  Fixture f;
  const Figure figure = f.Draw();
  ASSERT_TRUE(figure.bar);
  const auto brackets = Spans(*figure.bar, BarSpanStyle::kBracket);
  ASSERT_EQ(brackets.size(), 4U);
  const double expected[][2] = {{95, 93}, {90, 88}, {10, 12}, {5, 7}};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(brackets[i].from, expected[i][0]) << i;
    EXPECT_EQ(brackets[i].to, expected[i][1]) << i;
    EXPECT_EQ(figure.bar->marks[i].at, expected[i][0]) << i;
    EXPECT_EQ(figure.bar->marks[i].reach, BarReach::kWithin) << i;
  }
  for (const char* none : {"0", "-1", "x"}) {
    f.Set({{kHysteresis, none}});
    EXPECT_TRUE(f.Draw().bar->spans.empty()) << none;
  }
  EXPECT_EQ(f.Draw().remarks, Strings{"Hysteresis: no number."});
}

TEST(AnalogInputFigure, WhatLiesOutsideSitsAtTheEndWithAnArrow) {
  Fixture f;
  f.Set({{kUpperAlarm, "110"}, {kUpperWarning, "101"}, {kLowerWarning, "0"}, {kLowerAlarm, "-0.5"}, {kOutput, "-3"}});
  const Figure figure = f.Draw();
  ASSERT_TRUE(figure.bar);
  const std::vector<BarMark>& marks = figure.bar->marks;
  ASSERT_EQ(marks.size(), 4U);
  const struct {
    double at;
    BarReach reach;
    const char* text;
  } expected[] = {{100, BarReach::kAbove, "Upper Limit Alarm 110"},
                  {100, BarReach::kAbove, "Upper Limit Warning 101"},
                  {0, BarReach::kWithin, "Lower Limit Warning 0"},
                  {0, BarReach::kBelow, "Lower Limit Alarm -0.5"}};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(marks[i].at, expected[i].at) << i;
    EXPECT_EQ(marks[i].reach, expected[i].reach) << i;
    EXPECT_EQ(marks[i].text, expected[i].text) << i;
  }
  // 110 - 2 lies outside altogether; of the others the part within is left.
  const auto brackets = Spans(*figure.bar, BarSpanStyle::kBracket);
  ASSERT_EQ(brackets.size(), 3U);
  EXPECT_EQ(brackets[0].from, 100);
  EXPECT_EQ(brackets[0].to, 99);
  EXPECT_EQ(brackets[2].to, 1.5);
  ASSERT_TRUE(figure.bar->pointer);
  EXPECT_EQ(figure.bar->pointer->at, 0);
  EXPECT_EQ(figure.bar->pointer->reach, BarReach::kBelow);
  EXPECT_EQ(figure.bar->pointer->text, "-3");
  EXPECT_EQ(figure.bar->pointer->status, "Uncertain");
  ExpectSound(figure);
}

TEST(AnalogInputFigure, NamesLimitsInTheWrongOrder) {
  struct Case {
    std::vector<std::pair<TextId, const char*>> texts;
    Strings remarks;
    std::vector<std::pair<double, double>> joined;
  };
  const Case cases[] = {
      {{}, {}, {}},
      {{{kUpperWarning, "95"}, {kLowerWarning, "95"}, {kLowerAlarm, "95"}}, {}, {}},  // equal ones are in order
      {{{kUpperWarning, "97"}}, {"Check: Upper Limit Warning lies above Upper Limit Alarm."}, {{97, 95}}},
      {{{kLowerAlarm, "10.5"}}, {"Check: Lower Limit Alarm lies above Lower Limit Warning."}, {{10.5, 10}}},
      {{{kLowerWarning, "92"}}, {"Check: Lower Limit Warning lies above Upper Limit Warning."}, {{92, 90}}},
      {{{kUpperWarning, "120"}}, {"Check: Upper Limit Warning lies above Upper Limit Alarm."}, {{100, 95}}},
      {{{kUpperAlarm, "3"}, {kLowerAlarm, "11"}},
       {"Check: Upper Limit Warning lies above Upper Limit Alarm.",
        "Check: Lower Limit Alarm lies above Lower Limit Warning."},
       {{90, 3}, {11, 10}}},
      // What is no number is left out, and its neighbours meet.
      {{{kUpperWarning, ""}, {kLowerWarning, "96"}},
       {"Upper Limit Warning: no number.", "Check: Lower Limit Warning lies above Upper Limit Alarm."},
       {{96, 95}}},
  };
  for (const Case& c : cases) {
    Fixture f;
    f.Set(c.texts);
    const Figure figure = f.Draw();
    EXPECT_EQ(figure.remarks, c.remarks);
    ASSERT_TRUE(figure.bar);
    const auto wrong = Spans(*figure.bar, BarSpanStyle::kWrong);
    ASSERT_EQ(wrong.size(), c.joined.size());
    for (std::size_t i = 0; i < wrong.size(); ++i) {
      EXPECT_EQ(wrong[i].from, c.joined[i].first);
      EXPECT_EQ(wrong[i].to, c.joined[i].second);
    }
  }
}

TEST(AnalogInputFigure, SaysWhatIsMissing) {
  const char* const scales = "No scales read yet: open Scales first.";
  const char* const limits = "No limits read yet: open Alarm/Warning first.";
  const char* const output = "No output read yet: open Mode Block first.";
  Fixture f;
  for (const TextId field : kAll) f.unknown.insert(Of(field));
  f.unknown.insert(Of(id::ListAIAlarm));
  Figure figure = f.Draw();
  EXPECT_EQ(figure.missing, scales);
  EXPECT_EQ(figure.above, (Strings{limits, output}));
  EXPECT_EQ(figure.sentence, std::string(scales) + " " + limits + " " + output);
  EXPECT_FALSE(figure.bar);
  EXPECT_TRUE(figure.alarms.empty());
  EXPECT_TRUE(figure.remarks.empty());

  // The tab of the limits tells the output's scale too: the bar can be drawn, the line cannot.
  for (const TextId read :
       {kOutUpper, kOutLower, kUpperAlarm, kUpperWarning, kLowerAlarm, kLowerWarning, kHysteresis}) {
    f.unknown.erase(Of(read));
  }
  figure = f.Draw();
  EXPECT_EQ(figure.missing, scales);
  EXPECT_EQ(figure.above, Strings{output});
  ASSERT_TRUE(figure.bar);
  EXPECT_EQ(figure.bar->marks.size(), 4U);
  EXPECT_FALSE(figure.bar->pointer);

  f.unknown.clear();
  f.unknown.insert({Of(id::lbArray(201)), Of(id::txtParameter(302)), Of(id::cmbStatusAIModeBlock)});
  figure = f.Draw();
  EXPECT_EQ(figure.x.caption, "PV");  // a unit that another block left behind is not this one's
  EXPECT_EQ(figure.bar->axis.caption, "Output");
  EXPECT_EQ(figure.bar->pointer->status, "");
}

TEST(AnalogInputFigure, LeavesOutWhatIsNoNumber) {
  Fixture f;
  f.Set({{kPvUpper, ""}});
  Figure figure = f.Draw();
  EXPECT_EQ(figure.missing, "");
  EXPECT_TRUE(figure.lines.empty());
  EXPECT_EQ(Count(figure, MarkerShape::kFilledSquare), 1);
  EXPECT_EQ(figure.remarks, Strings{"PV Scale, Upper [EU (100%)]: no number."});
  f.Set({{kPvLower, ""}, {kOutput, "1E301"}});
  figure = f.Draw();
  EXPECT_EQ(figure.missing, "The scales are no numbers.");
  EXPECT_EQ(figure.remarks.back(), "Output: too large to be drawn.");
  EXPECT_FALSE(figure.bar->pointer);
  Fixture g;
  g.hinted.insert(Of(kUpperAlarm));  // for example the other locale's separator
  EXPECT_EQ(g.Draw().remarks, Strings{"Upper Limit Alarm: no number."});
}

TEST(AnalogInputFigure, ReadsTheNumbersOfItsLocale) {
  Fixture f;
  f.Set({{kPvUpper, "20,5"}, {kPvLower, "0,000"}, {kOutUpper, "100,25"}, {kOutLower, "0,25"}});
  const Figure figure = f.Draw(',');
  EXPECT_EQ(figure.x.to, 20.5);
  EXPECT_EQ(figure.bar->to, 100.25);
  EXPECT_EQ(figure.bar->from, 0.25);
}

TEST(AnalogInputFigure, TellsWhatIsNotWritten) {
  Fixture f;
  f.unwritten = {Of(kOutUpper), Of(kUpperWarning)};
  const Figure figure = f.Draw();
  EXPECT_EQ(Count(figure, MarkerShape::kHollowSquare), 1);
  EXPECT_EQ(Count(figure, MarkerShape::kFilledSquare), 1);
  for (const BarMark& mark : figure.bar->marks) {
    EXPECT_EQ(mark.unwritten, mark.text.starts_with("Upper Limit Warning")) << mark.text;
  }
}

TEST(AnalogInputFigure, IsSoundWhateverStandsInTheFields) {
  Fixture f;
  for (const char* one : kNastyTexts) {
    for (const char* other : kNastyTexts) {
      SCOPED_TRACE(testing::Message() << one << ", " << other);
      f.Set({{kPvUpper, one}, {kPvLower, other}, {kOutUpper, other}, {kOutLower, one}, {kHysteresis, one}});
      ExpectSound(f.Draw());
      f.Set({{kPvLower, "0"}, {kOutLower, "0"}, {kUpperAlarm, one}, {kUpperWarning, other}, {kOutput, other}});
      ExpectSound(f.Draw());
    }
  }
}

}  // namespace
}  // namespace htr60

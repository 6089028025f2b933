#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/bare_control.h"
#include "figures/figure.h"
#include "pages/char_points.h"

namespace htr60 {
namespace {

using Texts = std::vector<std::pair<const char*, const char*>>;
using Remarks = std::vector<std::string>;

struct Fixture {
  BareControl control;
  Form& form = control->form;
  std::vector<ControlId> unknown;
  ControlId focus{};
  char separator = '.';

  void Fill(const pages::CharPoints& points, const Texts& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
      form.At(points[i].fields.x).SetText(texts[i].first);
      form.At(points[i].fields.y).SetText(texts[i].second);
      form.At(points[i].fields.x).SetVisible(true);
    }
  }
  void Hold(const Texts& texts, const char* count = "") {
    Fill(pages::kHeldPoints, texts);
    form.txtParameter(110).SetText(count);
    form.txtParameter(109).SetText("10");
    form.lbArray(148).SetText("kPa");
    form.cmbStatusChar.SetText("Good (NC)");
  }
  void Record(const Texts& texts) {
    Fill(pages::kRecordedPoints, texts);
    form.lbParameter(40).SetText("bar");
  }
  Figure Of(FigureKind kind) {
    const auto known = [this](ControlId id) { return std::find(unknown.begin(), unknown.end(), id) == unknown.end(); };
    return ComputeFigure(kind, {.form = form,
                                .decimalSeparator = separator,
                                .known = known,
                                .unwritten = [](ControlId) { return false; },
                                .focus = focus});
  }
  Figure Held() { return Of(FigureKind::kCharacterization); }
  Figure Entry() { return Of(FigureKind::kCharacterizationEntry); }
};

int Count(const Figure& figure, MarkerShape shape) {
  return static_cast<int>(std::count_if(figure.markers.begin(), figure.markers.end(),
                                        [&](const FigureMarker& marker) { return marker.shape == shape; }));
}

const FigureLine* LineOf(const Figure& figure, LineStyle style) {
  const auto found = std::find_if(figure.lines.begin(), figure.lines.end(),
                                  [&](const FigureLine& line) { return line.style == style; });
  return found == figure.lines.end() ? nullptr : &*found;
}

bool HasText(const Figure& figure, const char* text) {
  return std::any_of(figure.texts.begin(), figure.texts.end(), [&](const FigureText& t) { return t.text == text; });
}

TEST(CharacterizationFigure, DrawsAsManyPointsAsTheCurveHas) {
  const std::pair<const char*, int> counts[] = {{"02", 2}, {"3", 3},  {"05", 5}, {"5", 5}, {"00", 5},
                                                {"01", 5}, {"06", 5}, {"0A", 5}, {"", 5},  {"2x", 5}};
  for (const auto& [text, points] : counts) {
    Fixture f;
    f.Hold({{"0", "0.5"}, {"10", "10.5"}, {"20", "20"}, {"30", "30"}, {"40", "40"}}, text);
    const Figure figure = f.Held();
    EXPECT_EQ(Count(figure, MarkerShape::kFilledSquare), points) << text;
    const FigureLine* curve = LineOf(figure, LineStyle::kCurve);
    ASSERT_NE(curve, nullptr) << text;
    EXPECT_EQ(curve->points.size(), static_cast<std::size_t>(points)) << text;
  }
}

TEST(CharacterizationFigure, HasAxesDiagonalAndThePressureNow) {
  Fixture f;
  f.Hold({{"0", "0.5"}, {"40", "38"}}, "02");
  f.form.txtParameter(109).SetText("55");
  const Figure figure = f.Held();
  EXPECT_EQ(figure.x.caption, "Measured (kPa)");
  EXPECT_EQ(figure.y.caption, "Applied (kPa)");
  EXPECT_GE(figure.x.to, 55);
  EXPECT_LT(figure.y.to, 55);
  const FigureLine* diagonal = LineOf(figure, LineStyle::kReference);
  ASSERT_NE(diagonal, nullptr);
  for (const FigurePoint& point : diagonal->points) EXPECT_EQ(point.x, point.y);
  EXPECT_EQ(diagonal->points.back().x, figure.y.to);  // as far as both axes reach
  const FigureLine* live = LineOf(figure, LineStyle::kLevel);
  ASSERT_NE(live, nullptr);
  EXPECT_EQ(live->points.front().x, 55);
  EXPECT_EQ(live->points.back().x, 55);
  EXPECT_TRUE(HasText(figure, "55 kPa, Good (NC)"));
  EXPECT_TRUE(figure.texts.front().rightAligned);
  EXPECT_EQ(figure.sentence,
            "Characterization curve of 2 points, measured from 0 to 60, applied from 0 to 40; "
            "measured now 55 kPa, Good (NC).");
  EXPECT_EQ(figure.verdict, "");

  f.unknown = {id::txtParameter(109)};
  EXPECT_EQ(LineOf(f.Held(), LineStyle::kLevel), nullptr);
  f.unknown = {pages::kHeldPoints[0].fields.x, pages::kHeldPoints[1].fields.y};
  EXPECT_EQ(f.Held().missing, "No curve read yet.");
}

TEST(CharacterizationFigure, NamesWhatIsWrong) {
  struct Case {
    Texts points;
    Remarks remarks;
    int crosses;
  };
  const Case cases[] = {
      {{{"0", "0"}, {"10", "10"}, {"20", "20"}}, {}, 0},
      {{{"20", "21"}, {"10", "11"}, {"0", "1"}}, {}, 0},  // entered from above
      {{{"0", "0"}, {"20", "20"}, {"10", "30"}}, {"Check: X does not rise from point 2 to point 3."}, 1},
      {{{"20", "20"}, {"10", "10"}, {"10", "5"}}, {"Check: X does not fall from point 2 to point 3."}, 1},
      {{{"0", "0"}, {"10", "20"}, {"20", "10"}}, {"Check: Y turns between point 2 and point 3."}, 1},
      {{{"0", "0"}, {"10", "20"}, {"20", "10"}, {"15", "5"}},
       {"Check: Y turns between point 2 and point 3, and 1 more."},
       2},
      {{{"0", "20"}, {"10", "10"}, {"20", "0"}}, {"Check: the device takes rising curves only."}, 0},
      {{{"0", "0"}, {"x", "10"}, {"20", "1.7E308"}, {"30", "30"}},
       {"Point 2: no number.", "Point 3: too large to be drawn."},
       0},
  };
  for (const Case& c : cases) {
    Fixture f;
    f.Hold(c.points, ("0" + std::to_string(c.points.size())).c_str());
    EXPECT_EQ(f.Held().remarks, c.remarks);
    EXPECT_EQ(Count(f.Held(), MarkerShape::kCross), c.crosses);
    Fixture entry;
    entry.Record(c.points);
    EXPECT_EQ(entry.Entry().remarks, c.remarks);
    EXPECT_EQ(Count(entry.Entry(), MarkerShape::kCross), c.crosses);
  }
}

TEST(CharacterizationFigure, TheEntryDrawsThePointsTakenAndTheNextOne) {
  Fixture f;
  f.unknown = {id::txtParameter(39)};
  EXPECT_EQ(f.Entry().missing, "No point recorded and no pressure read yet.");
  f.unknown.clear();
  f.form.txtParameter(39).SetText("12.000");
  const Figure first = f.Entry();
  EXPECT_EQ(first.missing, "");
  EXPECT_TRUE(first.markers.empty());
  EXPECT_TRUE(HasText(first, "P1"));
  ASSERT_NE(LineOf(first, LineStyle::kLevel), nullptr);
  EXPECT_EQ(LineOf(first, LineStyle::kLevel)->points.front().x, 12);

  f.Record({{"0", "0.5"}, {"10", "9.5"}});
  f.focus = pages::kRecordedPoints[1].fields.y;
  const Figure second = f.Entry();
  EXPECT_EQ(Count(second, MarkerShape::kHollowSquare), 2);  // none is written yet
  EXPECT_EQ(Count(second, MarkerShape::kRing), 1);
  EXPECT_TRUE(HasText(second, "P3"));
  EXPECT_EQ(second.x.caption, "Measured (bar)");
  EXPECT_EQ(second.sentence, "2 points recorded; measured now, for P3, 12.000 bar.");
}

// Numbers are those of the operator's locale, and whatever stands in the fields, the axes stay drawable.
TEST(CharacterizationFigure, TakesTheOperatorsNumbersWhateverTheyAre) {
  Fixture f;
  f.separator = ',';
  f.Hold({{"0,5", "1,5"}, {"2,5", "3,5"}}, "02");
  f.form.txtParameter(109).SetText("1,5");
  const Figure figure = f.Held();
  EXPECT_EQ(figure.remarks, Remarks{});
  EXPECT_EQ(figure.lines.front().points.front().x, 0.5);
  const char* const nasty[] = {"1E300", "-1E300", "1E301", "1E-320", "nan", "", "x", "-1E9999"};
  for (const char* number : nasty) {
    f.Hold({{"0", number}, {number, "0"}}, "02");
    f.form.txtParameter(109).SetText(number);
    f.form.txtParameter(39).SetText(number);
    f.Record({{number, number}});
    for (const Figure& drawn : {f.Held(), f.Entry()}) {
      if (!drawn.missing.empty()) continue;
      for (const FigureLine& line : drawn.lines) {
        for (const FigurePoint& point : line.points) {
          EXPECT_GE(point.x, drawn.x.from) << number;
          EXPECT_LE(point.x, drawn.x.to) << number;
          EXPECT_GE(point.y, drawn.y.from) << number;
          EXPECT_LE(point.y, drawn.y.to) << number;
        }
      }
    }
  }
}

}  // namespace
}  // namespace htr60

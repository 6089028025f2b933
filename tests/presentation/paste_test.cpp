#include "presentation/paste.h"

#include "screen_driver.h"

namespace htr60::automation {
namespace {

using presentation::ParseColumns;
using presentation::PastedColumns;

constexpr const char* kX[] = {"txtParameter(21)", "txtParameter(22)", "txtParameter(27)", "txtParameter(28)"};
constexpr const char* kY[] = {"txtParameter(36)", "txtParameter(52)", "txtParameter(53)", "txtParameter(54)"};

// Rows as "0|1 ok, a|b no".
std::string Told(const PastedColumns& pasted) {
  std::string told;
  for (const PastedColumns::Row& row : pasted.rows) {
    told += (told.empty() ? "" : ", ") + row.cells[0] + "|" + row.cells[1] + (row.numbers ? " ok" : " no");
  }
  return told;
}

TEST(PastedText, IsPartedIntoCells) {
  const struct {
    const char* text;
    char separator;
    std::size_t columns;
    const char* rows;
  } kCases[] = {
      {"", '.', 0, ""},
      {"12.5", '.', 1, "12.5| ok"},
      {"0\t1\r\n50\t 25.5\r\n", '.', 2, "0|1 ok, 50|25.5 ok"},
      {"0;1\n50;25.5", '.', 2, "0|1 ok, 50|25.5 ok"},
      {" 0   1 \r50 25.5", '.', 2, "0|1 ok, 50|25.5 ok"},
      {"0,5\t1\n1,5\t2", ',', 2, "0,5|1 ok, 1,5|2 ok"},
      {"Level\tVolume\n1\t2", '.', 2, "1|2 ok"},
      {"Level 1\n2 3", '.', 2, "Level|1 no, 2|3 ok"},
      {"Level", '.', 1, "Level| no"},
      {"1\n\n2\n\n \n", '.', 1, "1| ok, | no, 2| ok"},
      {"1\t\n2\t\n", '.', 1, "1| ok, 2| ok"},
      {"1\t2\n3\t\n\t4\n", '.', 2, "1|2 ok, 3| no, |4 no"},
      {"1\t2\n3\tx", '.', 2, "1|2 ok, 3|x no"},
      {"1\t2\t3", '.', 3, "1|2 ok"},
  };
  for (const auto& one : kCases) {
    SCOPED_TRACE(one.text);
    const PastedColumns pasted = ParseColumns(one.text, one.separator, 21);
    EXPECT_EQ(pasted.columns, one.columns);
    EXPECT_EQ(Told(pasted), one.rows);
    EXPECT_EQ(pasted.lines, pasted.rows.size());
  }
  EXPECT_EQ(ParseColumns("1\n2\n3\n", '.', 2).lines, 3U);
  EXPECT_EQ(Told(ParseColumns("1\n2\n3\n", '.', 2)), "1| ok, 2| ok");
}

// The table of points, read, with as many enabled.
class PasteDriver : public ScreenDriver {
 public:
  explicit PasteDriver(const char* points, const char* separator = ".")
      : ScreenDriver({{"dtm", "simulator"},
                      {"decimalSeparator", separator},
                      {"device", {{"primaryValueType", "Flow"}, {"parameters", {{"linType", "01"}}}}}}) {
    Activate("Pressure/Flow");
    Advance(100);
    Click("cmdTablePoints");
    Advance(100);
    Choose("cmbNrPoints", points);
    for (const auto& column : {kX, kY}) {
      for (int i = 0; i < 4; ++i) Ok({{"do", "type"}, {"control", column[i]}, {"text", "-"}, {"force", true}});
    }
  }
  void Paste(const char* control, const std::string& text) {
    Ok({{"do", "paste"}, {"control", control}, {"text", text}});
  }
  Json Bar() { return Screen().at("bar"); }
  void AnswerBar(int button) {
    EXPECT_EQ(Ok({{"do", "bar"}, {"button", button}})["closes"], false);
    EXPECT_EQ(Bar(), nullptr);
  }
  std::string Points() {
    std::string points;
    for (int i = 0; i < 4; ++i) points += (i > 0 ? " " : "") + Text(kX[i]) + "/" + Text(kY[i]);
    return points;
  }
};

TEST(PasteIntoPoints, FillsFromTheFocusedPointDown) {
  const struct {
    const char* name;
    const char* control;
    const char* text;
    const char* points;
    const char* message;
  } kCases[] = {
      {"two columns", kX[0], "0\t1\n2\t3\n", "0/1 2/3 -/- -/-", ""},
      {"two columns into a Y", kY[0], "0\t1\n2\t3\n", "0/1 2/3 -/- -/-", ""},
      {"from the second", kX[1], "0 1\n2 3\n", "-/- 0/1 2/3 -/-", ""},
      {"one column", kX[0], "1\n2\n3\n", "1/- 2/- 3/- -/-", ""},
      {"one column into the Ys", kY[1], "1\n2\n", "-/- -/1 -/2 -/-", ""},
      {"one row of two", kX[2], "7;8", "-/- -/- 7/8 -/-", ""},
      {"a heading", kX[0], "X;Y\n7;8", "7/8 -/- -/- -/-", ""},
      {"what is no number", kX[0], "1\nx\n3\n", "1/- -/- 3/- -/-", "Row 2: no number."},
      {"half a point", kX[0], "1;1\n2;\n;3", "1/1 -/- -/- -/-", "Rows 2 and 3: no number."},
      {"three columns", kX[0], "1;2;3", "-/- -/- -/- -/-", "Nothing pasted: more than two columns."},
      {"one row of words", kX[0], "about 5", "-/- -/- -/- -/-", "Row 1: no number."},
      {"a single number", kX[0], "5,5", "5,5/- -/- -/- -/-", ""},
  };
  for (const auto& one : kCases) {
    SCOPED_TRACE(one.name);
    PasteDriver d("3");
    d.Paste(one.control, one.text);
    EXPECT_EQ(d.Bar(), nullptr);
    EXPECT_EQ(d.Points(), one.points);
    EXPECT_EQ(d.Message(), one.message);
  }
}

TEST(PasteIntoPoints, IsInTheOperatorsLocaleAndAsIfTyped) {
  PasteDriver d("3", ",");
  d.Paste(kX[0], "0,5\t1\n1,5\t2\n");
  EXPECT_EQ(d.Points(), "0,5/1 1,5/2 -/- -/-");
  EXPECT_EQ(d.State(kX[1]), "not written");
  EXPECT_EQ(d.Footer(), "5 not written") << "four cells and the number of points";
}

TEST(PasteIntoPoints, AsksForMorePoints) {
  const std::string rows = "0\t1\n2\t3\n4\t5\n6\t7\n";
  PasteDriver d("2");
  d.Paste(kX[0], rows);
  EXPECT_EQ(d.Points(), "-/- -/- -/- -/-") << "nothing before the answer";
  EXPECT_EQ(d.Bar()["text"], "4 rows, 2 points: set 4 points?");
  EXPECT_EQ(d.Bar()["buttons"], Json::array({"Set 4 points", "Fill what fits"}));
  d.AnswerBar(0);
  EXPECT_EQ(d.Text("cmbNrPoints"), "4");
  EXPECT_EQ(d.Points(), "0/1 2/3 4/5 6/7");

  PasteDriver declined("2");
  declined.Paste(kX[0], rows);
  declined.AnswerBar(1);
  EXPECT_EQ(declined.Text("cmbNrPoints"), "2");
  EXPECT_EQ(declined.Points(), "0/1 2/3 -/- -/-");
  EXPECT_EQ(declined.Message(), "");

  PasteDriver later("3");
  later.Paste(kX[1], rows);
  EXPECT_EQ(later.Bar()["text"], "4 rows, 2 points: set 5 points?") << "points from the focused one on";
  later.Choose("cmbNrPoints", "21");
  EXPECT_EQ(later.Bar(), nullptr) << "nothing is left to ask";
}

TEST(PasteIntoPoints, ThereAreTwentyOnePointsAtMost) {
  std::string rows;
  for (int i = 0; i < 30; ++i) rows += std::to_string(i) + "\n";
  PasteDriver d("2");
  d.Paste(kX[0], rows);
  EXPECT_EQ(d.Bar()["text"], "30 rows, 2 points: set 21 points?");
  d.AnswerBar(0);
  EXPECT_EQ(d.Text("txtParameter(80)"), "20");
  d.Paste(kX[1], rows);
  EXPECT_EQ(d.Bar(), nullptr);
  EXPECT_EQ(d.Message(), "30 rows, 20 points.") << "nobody was asked, so it is said";
}

TEST(PasteIntoPoints, TheQuestionGoesWithItsPage) {
  PasteDriver d("2");
  d.Paste(kX[0], "1\n2\n3\n");
  ASSERT_NE(d.Bar(), nullptr);
  d.Click("cmdBack");
  EXPECT_EQ(d.Bar(), nullptr);
  d.Refused({{"do", "bar"}, {"button", 0}});
  EXPECT_EQ(d.Text(kX[0]), "-");
}

TEST(PasteIntoOtherFields, TakesTheTextAsItStands) {
  PasteDriver d("2");
  d.Refused({{"do", "paste"}, {"control", kX[2]}, {"text", "1"}});  // disabled
  d.Click("cmdBack");
  d.Tab("SSTabTRDSettings", 1);
  d.Paste("txtParameter(40)", "1\t2");
  EXPECT_EQ(d.Text("txtParameter(40)"), "1\t2");
}

}  // namespace
}  // namespace htr60::automation

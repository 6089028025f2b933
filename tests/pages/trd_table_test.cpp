#include <array>

#include "page_driver.h"

namespace htr60::automation {
namespace {

constexpr std::array<int, 21> kX = {21, 22, 27, 28, 29, 30, 31, 32, 33, 34, 35, 71, 72, 73, 74, 75, 76, 77, 78, 79, 80};
constexpr std::array<int, 21> kY = {36, 52, 53, 54, 55, 56, 66, 67, 68, 69, 70, 82, 83, 84, 85, 86, 87, 88, 89, 90, 91};
constexpr const char* kFillers = "11111111111111111111111111111111";

std::string Field(int index) { return "txtParameter(" + std::to_string(index) + ")"; }

/// Digits of `number` 0 to 255 in eight bits, as a single: exact.
std::string Digits(PageDriver& driver, double number) {
  return driver.Codec("FloatToHex", Json::array({std::to_string(number)}));
}

/// An answer with point k at (k, 100 + k).
Fills TableAnswer(int points, const std::string& status = "01") {
  PageDriver codec;
  Fills rows = {{"TRDLinType", "01", {{"cmbLinearizationType", "User Defined(Table)"}}}};
  const std::string count = codec.Codec("EncodeNrPoints", Json::array({std::to_string(points)}));
  rows.push_back({"TRDNumpoints", count, {{"cmbNrPoints", std::to_string(points)}}});
  for (std::size_t k = 1; k <= kX.size(); ++k) {
    const std::string number = std::to_string(k);
    const std::string pair = Digits(codec, static_cast<double>(k)) + Digits(codec, 100.0 + static_cast<double>(k));
    rows.push_back({"TRDX" + number + "Y" + number,
                    pair,
                    {{Field(kX[k - 1]), number + ".000"}, {Field(kY[k - 1]), std::to_string(100 + k) + ".000"}}});
  }
  rows.push_back({"TRDTableStatus", status, {{"txtParameter(45)", "New Table is Valid"}}});
  return rows;
}

void OpenTable(PageDriver& driver) {
  driver.Activate("Pressure/Flow");
  driver.Choose("cmbLinearizationType", "User Defined(Table)");
  driver.Click("cmdTablePoints");
  driver.Requests();
}

int EnabledPoints(PageDriver& driver) {
  int points = 0;
  for (std::size_t k = 0; k < kX.size(); ++k) {
    EXPECT_EQ(driver.Enabled(Field(kX[k])), driver.Enabled(Field(kY[k]))) << k + 1;
    if (!driver.Enabled(Field(kX[k]))) continue;
    EXPECT_EQ(points, static_cast<int>(k)) << "a gap before";
    ++points;
  }
  return points;
}

TEST(TrdTable, OpensWaiting) {
  PageDriver driver;
  driver.Activate("Pressure/Flow");
  driver.Choose("cmbLinearizationType", "User Defined(Table)");
  driver.Requests();
  driver.Tab("SSTabTRDSettings", 1);
  driver.Click("cmdTablePoints");
  EXPECT_EQ(driver.Page(), "TRD Table / TRD Settings");
  EXPECT_TRUE(driver.Visible("frmTRDTable"));
  EXPECT_TRUE(driver.Visible("PictMessageTable"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  EXPECT_TRUE(driver.Enabled("cmdBack"));
  EXPECT_EQ(driver.Traffic(), Strings{"read 9"});
  std::string numbers = "[\"2\"";
  for (int number = 3; number <= 21; ++number) numbers += ",\"" + std::to_string(number) + "\"";
  EXPECT_EQ(driver.Items("cmbNrPoints"), numbers + "]");
  driver.Advance(60000);  // there is no time-out
  EXPECT_TRUE(driver.Visible("PictMessageTable"));
}

TEST(TrdTable, TheAnswerFillsAllPointsInOrder) { ExpectFillsInOrder(900, TableAnswer(5), OpenTable); }

TEST(TrdTable, TheWaitEndsWithAnyAnswer) {
  PageDriver driver;
  OpenTable(driver);
  driver.AnswerTags(900, {});
  EXPECT_FALSE(driver.Visible("PictMessageTable"));
}

TEST(TrdTable, StatusTexts) {
  PageDriver driver;
  OpenTable(driver);
  for (const auto& [code, text] :
       {std::pair{"00", "Table Not Initialised"}, std::pair{"01", "New Table is Valid"},
        std::pair{"02", "Not Monotonous Inc"}, std::pair{"03", "Not Monotonous Dec"}, std::pair{"04", ""}}) {
    driver.AnswerFills(900, TableAnswer(2, code));
    EXPECT_EQ(driver.Text("txtParameter(45)"), text) << code;
  }
}

TEST(TrdTable, TheNumberEnablesThePointsAndKeepsTheirTexts) {
  PageDriver driver;
  OpenTable(driver);
  driver.AnswerFills(900, TableAnswer(21));
  EXPECT_EQ(EnabledPoints(driver), 21);
  for (const int number : {2, 3, 9, 20, 21, 12}) {
    driver.Choose("cmbNrPoints", std::to_string(number));
    EXPECT_EQ(EnabledPoints(driver), number);
    EXPECT_EQ(driver.Text(Field(91)), "121.000");
  }
  driver.AnswerFills(900, TableAnswer(4));  // the program's set counts as the operator's does
  EXPECT_EQ(EnabledPoints(driver), 4);
  driver.AnswerTags(900, {{"TRDLinType", "00"}, {"TRDNumpoints", "00"}});
  EXPECT_EQ(driver.Text("cmbNrPoints"), "0");
  EXPECT_EQ(EnabledPoints(driver), 2);
  driver.AnswerTags(900, {{"TRDLinType", "00"}, {"TRDNumpoints", "FF"}});
  EXPECT_EQ(driver.Text("cmbNrPoints"), "255");
  EXPECT_EQ(EnabledPoints(driver), 21);
}

TEST(TrdTable, WritesPairsAndFillers) {
  for (const int number : {2, 3, 20, 21}) {
    SCOPED_TRACE(number);
    PageDriver driver;
    OpenTable(driver);
    const Fills answer = TableAnswer(21);
    driver.AnswerFills(900, answer);
    driver.Choose("cmbNrPoints", std::to_string(number));
    driver.Click("cmdWriteParameter");
    const Json requests = driver.Requests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0]["kind"], "write");
    EXPECT_EQ(requests[0]["code"], "6");
    const Json attributes = requests[0]["attributes"];
    EXPECT_EQ(attributes[0], number == 2 ? "02" : number == 3 ? "03" : number == 20 ? "14" : "15");
    for (int pair = 0; pair < 10; ++pair) {
      std::string expected;
      for (int k = 2 * pair + 1; k <= 2 * pair + 2; ++k) {
        expected += k <= number ? answer[static_cast<std::size_t>(k + 1)].value : "1111111111111111";
      }
      EXPECT_EQ(attributes[static_cast<std::size_t>(pair + 1)], expected) << pair;
    }
    EXPECT_EQ(attributes[11], number == 21 ? answer[22].value : "");
    for (std::size_t i = 13; i < 24; ++i) EXPECT_EQ(attributes[i], "None");
    if (number == 2) {
      EXPECT_EQ(attributes[2], kFillers);
    }
  }
}

TEST(TrdTable, TheQuestionDecidesAnOperandAndNothingElse) {
  for (const auto& [answer, operand] : {std::pair{"Yes", "Yes"}, std::pair{"No", "No"}, std::pair{"Close", "No"}}) {
    SCOPED_TRACE(answer);
    PageDriver driver;
    OpenTable(driver);
    driver.AnswerFills(900, TableAnswer(2));
    driver.Ok({{"do", "boxes"}, {"answers", Json::array({answer})}});
    driver.Click("cmdWriteParameter");
    const Json shown = driver.Shown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0]["text"], "Do you want to enable table?");
    EXPECT_EQ(shown[0]["caption"], "Warning");
    EXPECT_EQ(shown[0]["icon"], "none");
    EXPECT_EQ(shown[0]["buttons"], Json::array({"Yes", "No"}));
    EXPECT_EQ(driver.Requests().at(0)["attributes"][12], operand);
  }
}

// What an answer changes while the question is open is not in that write: neither the points nor their number.
TEST(TrdTable, AllOperandsAreTakenBeforeTheQuestion) {
  const auto written = [](const Json& during) {
    PageDriver driver;
    OpenTable(driver);
    driver.AnswerFills(900, TableAnswer(5));
    driver.Ok({{"do", "boxes"}, {"answers", Json::array({{{"answer", "Yes"}, {"during", during}}})}});
    driver.Click("cmdWriteParameter");
    EXPECT_EQ(driver.Text("cmbNrPoints"), during.empty() ? "5" : "21");
    return driver.Requests().at(0)["attributes"];
  };
  Json tags = Json::array();
  for (const Filled& row : TableAnswer(21)) tags.push_back(Json::array({row.tag, row.value}));
  for (std::size_t i = 2; i < 23; ++i) tags[i][1] = "3F8000003F800000";
  const Json answer = {{"do", "answer"}, {"code", 900}, {"tags", tags}};
  EXPECT_EQ(written(Json::array({answer})), written(Json::array()));
}

TEST(TrdTable, TheReReadComesAfterFourSecondsAndWaits) {
  PageDriver driver;
  OpenTable(driver);
  driver.AnswerFills(900, TableAnswer(2));
  driver.Click("cmdWriteParameter");
  driver.Requests();
  EXPECT_EQ(driver.Panel(), "Writing Xmtr Data...");
  driver.Advance(3999);
  EXPECT_EQ(driver.Traffic(), Strings{});
  EXPECT_FALSE(driver.Visible("PictMessageTable"));
  driver.Advance(1);
  EXPECT_EQ(driver.Traffic(), Strings{"read 9"});
  EXPECT_TRUE(driver.Visible("PictMessageTable"));
}

TEST(TrdTable, NothingGoesOutWithoutANumberOfPoints) {
  PageDriver driver;
  OpenTable(driver);
  for (std::size_t k = 0; k < 2; ++k) {
    driver.Type(Field(kX[k]), "1");
    driver.Type(Field(kY[k]), "1");
  }
  driver.Click("cmdWriteParameter");
  EXPECT_EQ(driver.Shown().size(), 0U);
  EXPECT_EQ(driver.Traffic(), Strings{});
  EXPECT_EQ(driver.Timer("TimerReadAfterWrite")["enabled"], false);
}

TEST(TrdTable, TheCurveLeadsBackToTheTable) {
  PageDriver driver;
  OpenTable(driver);
  driver.Click("cmdPictureTable");
  EXPECT_EQ(driver.Page(), "Picture Table / TRD Settings");
  EXPECT_TRUE(driver.Visible("frmPictureTable"));
  EXPECT_FALSE(driver.Visible("PictMessageTable"));
  driver.Click("cmdBack");
  EXPECT_EQ(driver.Page(), "TRD Table / TRD Settings");
  EXPECT_TRUE(driver.Visible("frmTRDTable"));
  EXPECT_TRUE(driver.Enabled("cmdBack"));
  driver.Click("cmdBack");
  EXPECT_EQ(driver.Page(), "TRD Settings / TRD Settings");
  EXPECT_EQ(driver.Traffic(), Strings{});
}

}  // namespace
}  // namespace htr60::automation

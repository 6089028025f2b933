#include "factory_support.h"

namespace htr60::automation {
namespace {

const Fills kAnswer = {
    {"TRDAzTrimEnable", "01", {{"cmbAZTrimEnable", "True"}}},
    {"TRDAzTrimReference", "C0200000", {{"txtParameter(214)", "-2.500"}}},
    {"TRDAzTrimNoiseBand", "3E000000", {{"txtParameter(204)", "0.125"}}},
    {"TRDAzTrimTimeAction", "0000012C", {{"txtParameter(203)", "300"}}},
    {"TRDAzTrimSelection", "02", {{"CmbAZTrimSelection", "Using LRV"}}},
};

TEST(AutoZeroTrim, OpensFromTheMenuAndLeadsBackToIt) {
  PageDriver driver;
  EXPECT_EQ(driver.Items("cmbAZTrimEnable"), R"(["True","False"])");
  EXPECT_EQ(driver.Items("CmbAZTrimSelection"), R"(["Using Zero Trim","Using LRV"])");
  driver.Activate("Observe");
  ASSERT_TRUE(driver.Timer("TimerDeviceView")["enabled"].get<bool>());
  driver.Force("cmdAutoZeroTrim");
  EXPECT_FALSE(driver.Timer("TimerDeviceView")["enabled"].get<bool>());
  OpenMenu(driver);
  driver.Click("cmdAutoZeroTrim");
  EXPECT_EQ(driver.Traffic(), Strings{"read 57"});
  EXPECT_EQ(driver.Panel(), "Reading Xmtr Data...");
  EXPECT_EQ(driver.Member("CurrentPage"), "Auto Zero Trim");
  EXPECT_TRUE(driver.Visible("frmAutoZeroTrim"));
  EXPECT_FALSE(driver.Visible("frmFactoryPassword"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  EXPECT_TRUE(driver.Enabled("cmdBack"));
  driver.Click("cmdBack");
  EXPECT_EQ(driver.Member("CurrentPage"), "Factory Password");
  EXPECT_TRUE(driver.Visible("frmFactoryPassword"));
  EXPECT_FALSE(driver.Visible("frmAutoZeroTrim"));
  EXPECT_TRUE(driver.Enabled("cmdBack"));
  EXPECT_EQ(driver.Traffic(), Strings{});
}

TEST(AutoZeroTrim, TheAnswerFillsItsFieldsInOrder) { ExpectFillsInOrder(5700, kAnswer); }

TEST(AutoZeroTrim, CodesWithoutATextLeaveTheLists) {
  PageDriver driver;
  driver.AnswerFills(5700, kAnswer);
  driver.AnswerTags(5700, {{"TRDAzTrimEnable", "02"},
                           {"TRDAzTrimReference", "00000000"},
                           {"TRDAzTrimNoiseBand", "00000000"},
                           {"TRDAzTrimTimeAction", "FFFFFFFF"},
                           {"TRDAzTrimSelection", "03"}});
  EXPECT_EQ(driver.Text("cmbAZTrimEnable"), "True");
  EXPECT_EQ(driver.Text("CmbAZTrimSelection"), "Using LRV");
  EXPECT_EQ(driver.Text("txtParameter(203)"), "-1");
}

TEST(AutoZeroTrim, TheTimeTravelsInAsManyDigitsAsItNeeds) {
  struct Case {
    const char* time;
    const char* digits;  // null: nothing is sent
  };
  const Case cases[] = {
      {"5", "05"},  {"300", "12C"},     {"86400", "15180"}, {"0", "00"},   {"2.5", "02"},     {"3.5", "04"},
      {"16", "10"}, {"-1", "FFFFFFFF"}, {"1,000", "3E8"},   {"", nullptr}, {"soon", nullptr}, {"2147483648", nullptr},
  };
  PageDriver driver;
  OpenFromMenu(driver, "cmdAutoZeroTrim");
  driver.Choose("cmbAZTrimEnable", "False");
  driver.Type("txtParameter(214)", "1");
  driver.Type("txtParameter(204)", "-0.5");
  driver.Choose("CmbAZTrimSelection", "Using Zero Trim");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.time);
    driver.Type("txtParameter(203)", c.time);
    driver.Click("cmdWriteParameter");
    driver.Advance(2000);
    if (c.digits == nullptr) {
      EXPECT_EQ(driver.Traffic(), Strings{});
    } else {
      EXPECT_EQ(driver.Traffic(),
                (Strings{"write 45: 00, 3F800000, BF000000, " + std::string(c.digits) + ", 01", "read 57"}));
    }
  }
  // A text that is no row goes out empty; the rest is sent all the same.
  driver.Type("txtParameter(203)", "5");
  driver.SetList("cmbAZTrimEnable", "true");
  driver.SetList("CmbAZTrimSelection", "");
  driver.Click("cmdWriteParameter");
  EXPECT_EQ(driver.Traffic(), Strings{"write 45: , 3F800000, BF000000, 05, "});
  driver.Choose("cmbAZTrimEnable", "True");
  driver.Choose("CmbAZTrimSelection", "Using LRV");
  driver.Click("cmdWriteParameter");
  EXPECT_EQ(driver.Traffic(), Strings{"write 45: 01, 3F800000, BF000000, 05, 02"});
}

// 30 Pa too much at rest are well within the noise band.
TEST(AutoZeroTrimAtTheInstrument, ZeroIsCorrectedAfterTheTimeOfTheOperator) {
  PageDriver driver(Driver::Simulated(
      {{"device", {{"offsetErrorHi", 30}}}, {"process", {{"pressureHi", 10000}, {"pressureLo", 10000}}}}));
  OpenFromMenu(driver, "cmdAutoZeroTrim");
  driver.Advance(kSettled);
  const std::pair<const char*, const char*> start[] = {{"cmbAZTrimEnable", "False"},
                                                       {"txtParameter(214)", "0.000"},
                                                       {"txtParameter(204)", "0.050"},
                                                       {"txtParameter(203)", "60"},
                                                       {"CmbAZTrimSelection", "Using Zero Trim"}};
  for (const auto& [control, text] : start) EXPECT_EQ(driver.Text(control), text) << control;
  EXPECT_NEAR(Simulated(driver, "trim")["value"], 0.03, 1e-5);
  driver.Choose("cmbAZTrimEnable", "True");
  driver.Type("txtParameter(203)", "300");
  WriteAndWait(driver);
  EXPECT_EQ(StateOf(driver, "cmbAZTrimEnable"), "confirmed: confirmed");
  EXPECT_EQ(StateOf(driver, "txtParameter(203)"), "confirmed: confirmed");
  EXPECT_EQ(Simulated(driver, "azTime"), "0000012C");
  driver.Advance(290000);
  EXPECT_NEAR(Simulated(driver, "trim")["value"], 0.03, 1e-5);
  driver.Advance(10000);
  EXPECT_NEAR(Simulated(driver, "trim")["value"], 0.0, 1e-5);
  // A band beyond a tenth of the range is refused, what is written with it is not.
  driver.Type("txtParameter(204)", "4");
  driver.Type("txtParameter(203)", "7");
  WriteAndWait(driver);
  EXPECT_EQ(StateOf(driver, "txtParameter(204)"), "differs: device: 0.050, sent: 4");
  EXPECT_EQ(StateOf(driver, "txtParameter(203)"), "confirmed: confirmed");
}

}  // namespace
}  // namespace htr60::automation

#include "page_driver.h"

namespace htr60::automation {
namespace {

constexpr const char* kInputUnits =
    R"j(["Pa","MPa","kPa","bar","mbar","torr","atm","psi","g/cm²","kg/cm²","inH2O (4°C)","inH2O (68°F)",)j"
    R"j("mmH2O (4°C)","mmH2O (68°F)","ftH2O (68°F)","inHg (0°C)","mmHg (0°C)"])j";
constexpr const char* kOutputUnits =
    R"j(["Pa","MPa","kPa","bar","mbar","torr","atm","psi","g/cm²","kg/cm²","inH2O (4°C)","inH2O (68°F)",)j"
    R"j("mmH2O (4°C)","mmH2O (68°F)","mH2O","ftH2O (68°F)","inHg (0°C)","mmHg (0°C)"])j";
constexpr const char* kFlowUnits =
    R"j(["g/s","g/min","g/h","kg/s","kg/min","kg/h","kg/d","t/min","t/h","t/d","lb/s","lb/min","lb/h","lb/d",)j"
    R"j("m³/s","m³/min","m³/h","m³/d","L/s","L/min","L/h","CFS","CFM","CFH","CFD","gal/s","gal/min","gal/h",)j"
    R"j("gal/d","bbl/s","bbl/min","bbl/h","bbl/d"])j";

void OpenInput(PageDriver& driver) {
  driver.Activate("Pressure/Flow");
  driver.Click("cmdTRDInScale");
  driver.Requests();
}

/// The output scale page as a device of `type` opens it.
void OpenOutput(PageDriver& driver, std::string_view type = "Pressure") {
  driver.Activate("Pressure/Flow");
  driver.Choose("cmbPrimaryValueType", type);
  driver.Choose("cmbLinearizationType", "No Linearization.");
  driver.Click("cmdTrdOutScale");
  driver.Requests();
}

// Output unit bar, sensor unit kPa.
const Fills kOutputScale = {
    {"MeasuredType", "05", {{"cmbMeasType", "Brix"}}},
    {"TRDOutScale", "42480000C1A00000", {{"txtParameter(92)", "50.000"}, {"txtParameter(81)", "-20.000"}}},
    {"TRDOutUnit",
     "0471",
     {{"cmbUnitScaleOutput", "bar"},
      {"txtParameter(198)", "0.00248642"},
      {"lbArray(313)", "bar"},
      {"lbArray(314)", "bar"}}},
    {"TRDSensorUnit",
     "046D",
     {{"txtParameter(199)", "kPa"}, {"txtParameter(197)", "0.248642"}, {"txtParameter(200)", "0.01"}}},
    {"TRDUpperSnsLimit", "42C80000", {{"txtParameter(201)", "100.000"}, {"txtParameter(194)", "100.000"}}},
    {"TRDLowerSnsLimit", "C2C80000", {{"txtParameter(202)", "-100.000"}, {"txtParameter(193)", "-100.000"}}},
};

TEST(TrdInputScale, TheButtonArrangesTheSharedFrame) {
  PageDriver driver;
  driver.Activate("Pressure/Flow");
  driver.Requests();
  driver.Click("cmdTRDInScale");
  EXPECT_EQ(driver.Page(), "Trd Input Scale / TRD Settings");
  EXPECT_EQ(driver.Items("cmbPressureUnit"), kInputUnits);
  EXPECT_EQ(driver.Text("lbArray(107)"), "Pressure Unit (EU)");
  EXPECT_EQ(driver.Text("frmzGroup(13)"), "Transducer Input Scale");
  EXPECT_TRUE(driver.Visible("frmzGroup(8)"));
  EXPECT_TRUE(driver.Visible("frmTRDInputScale"));
  EXPECT_FALSE(driver.Visible("frmTRDSettings"));
  EXPECT_TRUE(driver.Enabled("cmdBack"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  EXPECT_EQ(driver.Traffic(), Strings{"read 6"});
}

TEST(TrdInputScale, TheAnswerFillsItsFieldsInOrder) {
  ExpectFillsInOrder(
      600,
      {{"TRDInputScale", "42480000C1A00000", {{"txtParameter(99)", "50.000"}, {"txtParameter(100)", "-20.000"}}},
       {"TRDPressUnit", "0471", {{"cmbPressureUnit", "bar"}, {"lbArray(465)", "bar"}, {"lbArray(466)", "bar"}}},
       {"TRDUpperSnsLimit", "42C80000", {{"txtParameter(135)", "100.000"}}},
       {"TRDLowerSnsLimit", "C2C80000", {{"txtParameter(126)", "-100.000"}}}},
      OpenInput);
}

TEST(TrdInputScale, AUnitWithoutTextLeavesListAndCaptions) {
  PageDriver driver;
  OpenInput(driver);
  Fills scale = {{"TRDInputScale", "0000000000000000", {}},
                 {"TRDPressUnit", "046D", {}},
                 {"TRDUpperSnsLimit", "42C80000", {}},
                 {"TRDLowerSnsLimit", "C2C80000", {}}};
  driver.AnswerFills(600, scale);
  scale[1].value = "07D0";
  scale[2].value = "42480000";
  driver.AnswerFills(600, scale);
  EXPECT_EQ(driver.Text("cmbPressureUnit"), "kPa");
  EXPECT_EQ(driver.Text("lbArray(465)"), "kPa");
  EXPECT_EQ(driver.Text("lbArray(466)"), "kPa");
  EXPECT_EQ(driver.Text("txtParameter(135)"), "50.000");
  // This list is open: a unit that is no row of it is shown all the same.
  scale[1].value = "05F5";
  driver.AnswerFills(600, scale);
  EXPECT_EQ(driver.Text("cmbPressureUnit"), driver.Codec("UnitCodeToText", Json::array({0x05F5})));
}

TEST(TrdInputScale, ThreePagesWriteAndReadItAlike) {
  for (const char* page : {"Trd Input Scale", "Trd Level Input Scale", "Factory Trd Input Scale"}) {
    SCOPED_TRACE(page);
    PageDriver driver;
    OpenInput(driver);
    driver.SetMember("CurrentPage", page);
    driver.Type("txtParameter(99)", "50");
    driver.Type("txtParameter(100)", "-20");
    driver.Choose("cmbPressureUnit", "mmHg (0°C)");
    driver.Click("cmdWriteParameter");
    const std::string unit = driver.Codec("UnitTextToCode", Json::array({"mmHg (0°C)"}));
    ASSERT_EQ(unit.size(), 4U);
    EXPECT_EQ(driver.Traffic(), Strings{"write 3: 42480000C1A00000, " + unit});
    driver.Advance(2000);
    EXPECT_EQ(driver.Traffic(), Strings{"read 6"});
  }
}

TEST(TrdOutputScale, TheTypeDecidesListAndGroups) {
  struct Case {
    const char* type;
    const char* units;
    bool limits;
  };
  for (const Case& c : {Case{"Pressure", kOutputUnits, true}, Case{"Flow", kFlowUnits, false}}) {
    SCOPED_TRACE(c.type);
    PageDriver driver;
    driver.Activate("Pressure/Flow");
    driver.Choose("cmbPrimaryValueType", c.type);
    driver.Requests();
    driver.Click("cmdTrdOutScale");
    EXPECT_EQ(driver.Page(), "Trd Output Scale / TRD Settings");
    EXPECT_EQ(driver.Items("cmbUnitScaleOutput"), c.units);
    EXPECT_EQ(driver.Visible("frmzGroup(34)"), c.limits);
    EXPECT_EQ(driver.Get("frmzGroup(34)")["top"], 3120);
    EXPECT_EQ(driver.Get("frmzGroup(61)")["top"], 4560);
    EXPECT_FALSE(driver.Visible("frmzGroup(61)"));
    EXPECT_TRUE(driver.Visible("frmTRDOutputScale"));
    EXPECT_EQ(driver.Text("frmzGroup(14)"), "Transducer Output Scale");
    EXPECT_EQ(driver.Text("frmzGroup(33)"), "Transducer Output Unit");
    EXPECT_FALSE(driver.Enabled("cmdWriteParameter"));
    EXPECT_TRUE(driver.Enabled("cmdBack"));
    EXPECT_EQ(driver.Traffic(), Strings{"read 7"});
    // Any other type leaves list and limits as they stand.
    driver.Click("cmdBack");
    driver.Choose("cmbPrimaryValueType", "Level");
    driver.Click("cmdTrdOutScale");
    EXPECT_EQ(driver.Items("cmbUnitScaleOutput"), c.units);
    EXPECT_EQ(driver.Visible("frmzGroup(34)"), c.limits);
    EXPECT_EQ(driver.Traffic(), Strings{"read 7"});
  }
}

TEST(TrdOutputScale, OpeningUndoesWhatTheDensityPageLeaves) {
  PageDriver driver;
  driver.Activate("Pressure/Flow");
  driver.Choose("cmbPrimaryValueType", "Pressure");
  driver.Force("cmdDensTrdOutputScale");
  driver.Force("cmdTrdOutScale");
  for (const char* button : {"Command1", "Command2"}) EXPECT_TRUE(driver.Visible(button)) << button;
  for (const char* field : {"txtParameter(92)", "txtParameter(81)", "cmbUnitScaleOutput"}) {
    EXPECT_TRUE(driver.Enabled(field)) << field;
  }
  EXPECT_FALSE(driver.Visible("frmzGroup(61)"));
  EXPECT_TRUE(driver.Visible("frmzGroup(34)"));
  EXPECT_EQ(driver.Get("frmzGroup(34)")["top"], 3120);
  EXPECT_EQ(driver.Get("frmzGroup(61)")["top"], 4560);
}

TEST(TrdOutputScale, TheAnswerFillsItsFieldsInOrderAndKeepsTheLimitsInSensorUnits) {
  // Before the tags are looked at, four fields read 1: so does a field whose tag is missing.
  const auto open = [](PageDriver& driver) {
    OpenOutput(driver);
    driver.AnswerTags(700, {});
    for (const char* field : {"197", "198", "194", "193"}) {
      EXPECT_EQ(driver.Text("txtParameter(" + std::string(field) + ")"), "1");
    }
  };
  ExpectFillsInOrder(700, kOutputScale, open);
}

TEST(TrdOutputScale, RatioOfTheFactors) {
  struct Case {
    const char* type;
    const char* outUnit;
    const char* sensorUnit;
    const char* factor2;
    const char* factor1;
    const char* ratio;
  };
  for (const Case& c : {Case{"Flow", "0526", "046D", "1", "0.248642", ""},                  // g/s: passes unconverted
                        Case{"Pressure", "0471", "07D0", "0.00248642", "1", "0.00248642"},  // unknown sensor unit
                        Case{"Pressure", "046A", "046A", "248.642", "248.642", "1"}}) {
    SCOPED_TRACE(c.outUnit);
    PageDriver driver;
    OpenOutput(driver, c.type);
    Fills scale = kOutputScale;
    scale[2].value = c.outUnit;
    scale[3].value = c.sensorUnit;
    driver.AnswerFills(700, scale);
    EXPECT_EQ(driver.Text("txtParameter(198)"), c.factor2);
    EXPECT_EQ(driver.Text("txtParameter(197)"), c.factor1);
    const double ratio = std::stod(driver.Text("txtParameter(200)"));
    EXPECT_DOUBLE_EQ(ratio, *c.ratio != 0 ? std::stod(c.ratio) : 1 / 0.248642);
    EXPECT_EQ(driver.Text("txtParameter(194)"), "100.000");
  }
}

TEST(TrdOutputScale, WithADecimalComma) {
  PageDriver driver(Json{{"decimalSeparator", ","}});
  OpenOutput(driver);
  driver.AnswerFills(700, kOutputScale);
  EXPECT_EQ(driver.Text("txtParameter(198)"), "0,00248642");
  EXPECT_EQ(driver.Text("txtParameter(200)"), "0,01");
  EXPECT_EQ(driver.Text("txtParameter(194)"), "100,000");
  driver.Type("txtParameter(92)", "25,5");
  driver.Click("Command1");
  EXPECT_EQ(driver.Traffic(), Strings{"write 4: 41CC0000C1A00000, 0471"});
}

TEST(TrdOutputScale, AFailureAsksForTheUnitWhereNoneIsShown) {
  struct Case {
    const char* page;
    const char* type;
    const char* text;
    const char* caption;
  };
  for (const Case& c : {Case{"Trd Output Scale", "Pressure", "Please, select Pressure Uni.t", "Pressure Unit"},
                        Case{"Trd Output Scale", "Flow", "Please, select Flow Unit.", "Flow Unit"},
                        Case{"Trd Output Scale", "Density", nullptr, nullptr},
                        Case{"Trd Level Output Scale", "Pressure", "Please, select Level Unit.", "Level Unit"},
                        Case{"Trd Level Output Scale", "Density", "Please, select Level Unit.", "Level Unit"},
                        Case{"TRD Settings", "Pressure", nullptr, nullptr}}) {
    SCOPED_TRACE(std::string(c.page) + ", " + c.type);
    PageDriver driver;
    OpenOutput(driver, c.type);
    driver.SetMember("CurrentPage", c.page);
    driver.SetMember("CheckOutScaleAfterWrite", -1);
    Fills scale = kOutputScale;
    scale[2].value = "044C";  // g/cm³ is in none of these lists
    driver.AnswerFills(700, scale);
    EXPECT_EQ(driver.Text("txtParameter(92)"), "50.000");
    EXPECT_EQ(driver.Text("txtParameter(199)"), "");
    EXPECT_EQ(driver.Text("txtParameter(201)"), "");
    EXPECT_EQ(driver.Member("CheckOutScaleAfterWrite"), -1);
    const Json shown = driver.Shown();
    ASSERT_EQ(shown.size(), c.text == nullptr ? 0U : 1U);
    if (c.text == nullptr) continue;
    EXPECT_EQ(shown[0]["text"], c.text);
    EXPECT_EQ(shown[0]["caption"], c.caption);
    EXPECT_EQ(shown[0]["icon"], "information");
    EXPECT_EQ(shown[0]["buttons"], Json::array({"OK"}));
  }
}

TEST(TrdOutputScale, AFailureIsSilentWhereAUnitIsShown) {
  PageDriver driver;
  OpenOutput(driver);
  driver.AnswerFills(700, kOutputScale, "TRDOutScale");  // whatever fails: the list is still empty
  EXPECT_EQ(driver.Shown().size(), 1U);
  driver.AnswerFills(700, kOutputScale);
  Fills scale = kOutputScale;
  scale[2].value = "046C";  // decoded as "Mpa", where the list holds "MPa"
  driver.AnswerFills(700, scale);
  EXPECT_EQ(driver.Text("cmbUnitScaleOutput"), "bar");
  EXPECT_EQ(driver.Text("txtParameter(198)"), "1");
  EXPECT_EQ(driver.Text("txtParameter(194)"), "1");
  driver.AnswerFills(700, kOutputScale, "TRDLowerSnsLimit");
  EXPECT_EQ(driver.Shown().size(), 0U);
}

TEST(TrdOutputScale, TwoButtonsAndTheDispatcherWriteTheSame) {
  struct Case {
    const char* button;
    const char* page;
    const char* code;
    const char* requestCode;
  };
  for (const Case& c :
       {Case{"Command1", "Trd Output Scale", "4", "4"}, Case{"Command2", "Trd Output Scale", "42", "42"},
        Case{"cmdWriteParameter", "Trd Output Scale", "4", "7"},
        Case{"cmdWriteParameter", "Trd Level Output Scale", "4", "7"}}) {
    SCOPED_TRACE(std::string(c.button) + ", " + c.page);
    PageDriver driver;
    OpenOutput(driver);
    driver.SetMember("CurrentPage", c.page);
    driver.Type("txtParameter(92)", "50");
    driver.Type("txtParameter(81)", "-20");
    driver.Choose("cmbUnitScaleOutput", "bar");
    driver.Force(c.button);
    EXPECT_EQ(driver.Traffic(), Strings{"write " + std::string(c.code) + ": 42480000C1A00000, 0471"});
    EXPECT_EQ(driver.Member("RequestCode"), c.requestCode);
    EXPECT_EQ(driver.Member("CheckOutScaleAfterWrite"), -1);
    EXPECT_EQ(driver.Panel(), "Writing Xmtr Data...");
    EXPECT_EQ(driver.Timer("TimerReadAfterWrite"), Json::parse(R"({"enabled":true,"interval":2000})"));
    driver.Advance(2000);
    EXPECT_EQ(driver.Traffic(), Strings{"read 7"});
  }
}

TEST(TrdOutputScale, TheFlagIsRaisedBeforeTheValuesAreRead) {
  PageDriver driver;
  OpenOutput(driver);
  driver.Type("txtParameter(92)", "9999999999");  // does not convert: nothing goes out
  driver.Click("Command1");
  EXPECT_EQ(driver.Traffic(), Strings{});
  EXPECT_EQ(driver.Member("CheckOutScaleAfterWrite"), -1);
  EXPECT_EQ(driver.Timer("TimerReadAfterWrite")["enabled"], false);
}

TEST(TrdOutputScale, SmallButtonsWriteWithoutAConnection) {
  PageDriver driver;
  OpenOutput(driver);
  driver.SetMember("ConnectionState", "Disconnected");
  driver.Type("txtParameter(92)", "50");
  driver.Type("txtParameter(81)", "0");
  driver.Click("Command2");
  EXPECT_EQ(driver.Traffic(), Strings{"write 42: 4248000000000000, "});
  driver.Force("cmdWriteParameter");
  EXPECT_EQ(driver.Traffic(), Strings{});
}

TEST(TrdOutputScale, TheNextAnswerConsumesTheFlag) {
  struct Case {
    const char* type;
    const char* linearization;
    bool starts;
  };
  for (const Case& c : {Case{"Pressure", "No Linearization.", true}, Case{"Pressure", "User Defined(Table)", true},
                        Case{"Pressure", "Square Root", false}, Case{"Pressure", "Square Root & Table", false},
                        Case{"Flow", "No Linearization.", false}}) {
    SCOPED_TRACE(std::string(c.type) + ", " + c.linearization);
    PageDriver driver;
    OpenOutput(driver, c.type);
    driver.SetList("cmbLinearizationType", c.linearization);
    Fills scale = kOutputScale;
    if (c.starts == false && std::string(c.type) == "Flow") scale[2].value = "0526";
    driver.AnswerFills(700, scale);
    EXPECT_EQ(driver.Timer("TimerWriteCopyTrdOut")["enabled"], false);
    driver.SetMember("CheckOutScaleAfterWrite", -1);
    driver.AnswerFills(700, scale);
    EXPECT_EQ(driver.Member("CheckOutScaleAfterWrite"), 0);
    EXPECT_EQ(driver.Timer("TimerWriteCopyTrdOut"), (Json{{"enabled", c.starts}, {"interval", c.starts ? 100 : 3960}}));
    driver.Advance(10000);
    driver.Activate("Pressure/Flow");
    EXPECT_EQ(driver.Timer("TimerWriteCopyTrdOut")["enabled"], c.starts);
    EXPECT_EQ(driver.Traffic(), Strings{"read 5"});
  }
}

}  // namespace
}  // namespace htr60::automation

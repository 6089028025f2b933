#include "page_driver.h"

namespace htr60::automation {
namespace {

constexpr const char* kTypeNote = "Please, note that HTR60 is not configured to Pressure/Flow measurement.";

void OpenSettings(PageDriver& driver) {
  driver.Activate("Pressure/Flow");
  driver.Requests();
}

const Fills kSettings = {
    {"TRDPVType", "0001", {{"cmbPrimaryValueType", "Flow"}}},
    {"TRDLinType", "0A", {{"cmbLinearizationType", "Square Root"}}},
    {"TRDFlowLinSqrt", "41200000", {{"txtParameter(37)", "10.000"}}},
    {"TRDLowFlowCutOff", "40A40000", {{"txtParameter(40)", "5.125"}}},
};

TEST(TrdSettings, TheNodeOpensThePageAndFillsItsListsOnce) {
  PageDriver driver;
  EXPECT_EQ(driver.Items("cmbLinearizationType"), "[]");
  driver.Activate("Pressure/Flow");
  EXPECT_EQ(driver.Page(), "TRD Settings / TRD Settings");
  EXPECT_TRUE(driver.Visible("frmTRDSettings"));
  EXPECT_FALSE(driver.Visible("frmInfo"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  EXPECT_EQ(driver.Traffic(), Strings{"read 5"});
  EXPECT_EQ(driver.Items("cmbPrimaryValueType"), R"(["Pressure","Flow","Level","Density"])");
  EXPECT_EQ(driver.Items("cmbLinearizationType"),
            R"j(["No Linearization.","User Defined(Table)","Square Root","Square Root & Table"])j");
  EXPECT_EQ(driver.Items("cmbPVSimulateEnable"), R"(["Enable","Disable"])");
  driver.Choose("cmbPrimaryValueType", "Flow");
  driver.Activate("Pressure/Flow");
  EXPECT_EQ(driver.Text("cmbPrimaryValueType"), "Flow");
}

TEST(TrdSettings, TheAnswerFillsItsFieldsInOrder) { ExpectFillsInOrder(500, kSettings, OpenSettings); }

TEST(TrdSettings, AnotherTypeIsToldOnEachRead) {
  PageDriver driver;
  OpenSettings(driver);
  Fills density = kSettings;
  density[0].value = "0081";
  for (int read = 0; read < 2; ++read) {
    driver.AnswerFills(500, density);
    const Json shown = driver.Shown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0]["text"], kTypeNote);
    EXPECT_EQ(shown[0]["caption"], "Primary Value Type");
    EXPECT_EQ(shown[0]["icon"], "information");
    EXPECT_EQ(shown[0]["buttons"], Json::array({"OK"}));
  }
  EXPECT_EQ(driver.Text("txtParameter(40)"), "5.125");
  // A type without a text leaves the list; what it holds then counts.
  Fills unknown = kSettings;
  unknown[0].value = "0007";
  driver.AnswerFills(500, unknown);
  EXPECT_EQ(driver.Text("cmbPrimaryValueType"), "Density");
  EXPECT_EQ(driver.Shown().size(), 1U);
  driver.AnswerFills(500, kSettings);
  EXPECT_EQ(driver.Shown().size(), 0U);
}

TEST(TrdSettings, TheLinearizationDecidesWhatIsShown) {
  struct Case {
    const char* code;
    const char* text;
    bool squareRoot;
    bool table;
  };
  PageDriver driver;
  EXPECT_FALSE(driver.Visible("frmzGroup(12)"));
  EXPECT_FALSE(driver.Visible("cmdTablePoints"));
  OpenSettings(driver);
  for (const Case& c : {Case{"F0", "Square Root & Table", true, true}, Case{"01", "User Defined(Table)", false, true},
                        Case{"0A", "Square Root", true, false}, Case{"00", "No Linearization.", false, false}}) {
    for (const bool answered : {true, false}) {
      SCOPED_TRACE(c.text);
      driver.SetList("cmbLinearizationType", answered ? "User Defined(Table)" : "No Linearization.");
      if (answered) {
        Fills settings = kSettings;
        settings[1].value = c.code;
        driver.AnswerFills(500, settings);
      } else {
        driver.Choose("cmbLinearizationType", c.text);
      }
      EXPECT_EQ(driver.Text("cmbLinearizationType"), c.text);
      EXPECT_EQ(driver.Visible("frmzGroup(12)"), c.squareRoot);
      EXPECT_EQ(driver.Visible("cmdTablePoints"), c.table);
    }
  }
}

TEST(TrdSettings, TheClosedListRefusesWhatIsNoRowAndEndsTheAnswer) {
  PageDriver driver;
  OpenSettings(driver);
  Fills none = kSettings;
  none[1].value = "FB";  // decoded as "None", which is no row
  driver.AnswerFills(500, none);
  EXPECT_EQ(driver.Text("cmbPrimaryValueType"), "Flow");
  EXPECT_EQ(driver.Text("cmbLinearizationType"), "");
  EXPECT_EQ(driver.Text("txtParameter(37)"), "");
  none[1].value = "77";  // without a text: the list stays and the answer goes on
  driver.AnswerFills(500, none);
  EXPECT_EQ(driver.Text("cmbLinearizationType"), "");
  EXPECT_EQ(driver.Text("txtParameter(40)"), "5.125");
  // Before the first visit the list has no rows, so that every text fails.
  PageDriver unvisited;
  unvisited.AnswerFills(500, kSettings);
  EXPECT_EQ(unvisited.Text("cmbPrimaryValueType"), "Flow");
  EXPECT_EQ(unvisited.Text("cmbLinearizationType"), "");
  EXPECT_EQ(unvisited.Text("txtParameter(37)"), "");
}

TEST(TrdSettings, WritesTypeLinearizationAndTheHiddenFlowValues) {
  PageDriver driver;
  OpenSettings(driver);
  driver.Choose("cmbPrimaryValueType", "Density");
  driver.Choose("cmbLinearizationType", "No Linearization.");
  driver.Type("txtParameter(37)", "25.5");
  driver.Type("txtParameter(40)", "-20");
  driver.Click("cmdWriteParameter");
  EXPECT_EQ(driver.Traffic(), Strings{"write 2: 0081, 00, 41CC0000, C1A00000"});
  EXPECT_EQ(driver.Panel(), "Writing Xmtr Data...");
  driver.Advance(1999);
  EXPECT_EQ(driver.Traffic(), Strings{});
  driver.Advance(1);
  EXPECT_EQ(driver.Traffic(), Strings{"read 5"});
  driver.Type("txtParameter(37)", "9999999999");  // no 32-bit integer part: nothing goes out
  driver.Click("cmdWriteParameter");
  EXPECT_EQ(driver.Traffic(), Strings{});
}

TEST(TrdSettings, Tabs) {
  struct Case {
    int tab;
    const char* page;
    bool write;
    Strings sent;
  };
  PageDriver driver;
  OpenSettings(driver);
  for (const Case& c :
       {Case{1, "TRD Settings / TRD Settings", false, {}}, Case{2, "TRD Settings / TRD Simulate", true, {"read 43"}},
        Case{1, "TRD Settings / TRD Simulate", false, {}}, Case{3, "TRD Settings / Sensor Value", false, {"read 45"}},
        Case{0, "TRD Settings / TRD Settings", true, {"read 5"}}}) {
    SCOPED_TRACE(c.tab);
    driver.Tab("SSTabTRDSettings", c.tab);
    EXPECT_EQ(driver.Page(), c.page);
    EXPECT_EQ(driver.Enabled("cmdWriteParameter"), c.write);
    EXPECT_EQ(driver.Traffic(), c.sent);
    EXPECT_EQ(driver.Timer("TimerSensorValue")["enabled"], c.tab == 3);
    EXPECT_EQ(driver.Member("RequestCode"), c.sent.empty() ? "0" : c.sent[0].substr(5));
  }
}

TEST(TrdSettings, TheNodePutsTheFirstTabInFrontWhichReadsToo) {
  PageDriver driver;
  OpenSettings(driver);
  driver.Tab("SSTabTRDSettings", 3);
  driver.Requests();
  driver.Activate("Pressure/Flow");
  EXPECT_EQ(driver.Get("SSTabTRDSettings")["index"], 0);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 5", "read 5"}));
  EXPECT_EQ(driver.Timer("TimerSensorValue")["enabled"], false);
}

TEST(TrdSettings, SensorValuesArePolledUntilTheTabIsLeft) {
  PageDriver driver;
  OpenSettings(driver);
  driver.Tab("SSTabTRDSettings", 3);
  driver.Requests();
  driver.Advance(4999);
  EXPECT_EQ(driver.Traffic(), Strings{});
  driver.Advance(5001);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 45", "read 45"}));
  driver.Tab("SSTabTRDSettings", 1);
  driver.Advance(20000);
  EXPECT_EQ(driver.Traffic(), Strings{});
}

TEST(TrdSettings, SimulationValueAndStatus) {
  ExpectFillsInOrder(4300, {{"TRDSimulateEnable", "01", {{"cmbPVSimulateEnable", "Enable"}}},
                            {"TRDSimulateValue", "4248000080", {{"txtParameter(59)", "50.000"}}}});
  PageDriver driver;
  OpenSettings(driver);
  EXPECT_EQ(driver.Items("cmbTRDSimStatus"), "[]");
  driver.Tab("SSTabTRDSettings", 2);
  EXPECT_EQ(driver.Get("cmbTRDSimStatus")["items"].front(), "Bad & Non-specific");
  driver.AnswerTags(4300, {{"TRDSimulateEnable", "00"}, {"TRDSimulateValue", "4248000080"}});
  EXPECT_EQ(driver.Text("cmbPVSimulateEnable"), "Disable");
  const std::string good = driver.Codec("StatusByteToText", Json::array({128}));
  EXPECT_EQ(driver.Text("cmbTRDSimStatus"), good);
  // The rows come with the first click on the tab alone: a later one leaves list and text.
  driver.Tab("SSTabTRDSettings", 0);
  driver.Tab("SSTabTRDSettings", 2);
  EXPECT_EQ(driver.Text("cmbTRDSimStatus"), good);
  driver.Requests();
  driver.Choose("cmbPVSimulateEnable", "Enable");
  driver.Type("txtParameter(59)", "12.5");
  driver.Click("cmdWriteParameter");
  EXPECT_EQ(driver.Traffic(), Strings{"write 35: FF, 4148000080"});
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), Strings{"read 43"});
  // A status byte that cannot be read counts as 0.
  driver.AnswerTags(4300, {{"TRDSimulateEnable", "55"}, {"TRDSimulateValue", "42480000"}});
  EXPECT_EQ(driver.Text("cmbPVSimulateEnable"), "Enable");
  EXPECT_EQ(driver.Text("cmbTRDSimStatus"), driver.Codec("StatusByteToText", Json::array({0})));
}

TEST(TrdSettings, TemperatureUnit) {
  PageDriver driver;
  OpenSettings(driver);
  driver.Tab("SSTabTRDSettings", 1);
  driver.Click("cmdTemp");
  EXPECT_EQ(driver.Page(), "TRD Temp Unit / TRD Settings");
  EXPECT_TRUE(driver.Visible("frmTRDTempUnits"));
  EXPECT_FALSE(driver.Visible("frmTRDSettings"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  EXPECT_EQ(driver.Traffic(), Strings{"read 8"});
  EXPECT_EQ(driver.Items("cmbTempUnits"), R"(["K","°C","°F"])");
  driver.AnswerTags(800, {{"TRDTempUnit", "03E8"}});
  EXPECT_EQ(driver.Text("cmbTempUnits"), "K");
  driver.AnswerTags(800, {{"TRDTempUnit", "07D0"}});
  EXPECT_EQ(driver.Text("cmbTempUnits"), "K");
  driver.Choose("cmbTempUnits", "°F");
  driver.Click("cmdWriteParameter");
  EXPECT_EQ(driver.Traffic(), Strings{"write 5: 03EA"});
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), Strings{"read 8"});
}

TEST(TrdSettings, WaysBackReadNothingAndKeepTheTab) {
  for (const char* button : {"cmdSquareRoot", "cmdTemp", "cmdTRDInScale", "cmdTrdOutScale", "cmdTablePoints"}) {
    SCOPED_TRACE(button);
    PageDriver driver;
    OpenSettings(driver);
    driver.Tab("SSTabTRDSettings", 1);
    driver.SetMember("SubPage", "Sensor Value");
    driver.Force(button);
    EXPECT_FALSE(driver.Visible("frmTRDSettings"));
    EXPECT_TRUE(driver.Enabled("cmdBack"));
    driver.Requests();
    driver.Click("cmdBack");
    EXPECT_EQ(driver.Page(), "TRD Settings / TRD Settings");
    EXPECT_TRUE(driver.Visible("frmTRDSettings"));
    EXPECT_FALSE(driver.Enabled("cmdBack"));
    EXPECT_EQ(driver.Get("SSTabTRDSettings")["index"], 1);
    EXPECT_EQ(driver.Traffic(), Strings{});
  }
}

TEST(TrdSettings, TheCurveIsShownWithoutARead) {
  PageDriver driver;
  OpenSettings(driver);
  driver.Choose("cmbLinearizationType", "Square Root");
  driver.Click("cmdSquareRoot");
  EXPECT_EQ(driver.Page(), "Square Root / TRD Settings");
  EXPECT_TRUE(driver.Visible("frmSquareRoot"));
  EXPECT_EQ(driver.Traffic(), Strings{});
}

}  // namespace
}  // namespace htr60::automation

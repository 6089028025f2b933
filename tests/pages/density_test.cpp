#include <bit>
#include <cstdint>
#include <cstdio>

#include "page_driver.h"

namespace htr60::automation {
namespace {

void OpenSettings(PageDriver& driver) {
  driver.Activate("Density/Concentration");
  driver.Requests();
}

void OpenOutput(PageDriver& driver) {
  OpenSettings(driver);
  driver.Click("cmdDensTrdOutputScale");
  driver.Requests();
}

const Fills kSettings = {
    {"TRDPVType", "0081", {{"cmbDensityPrimaryValueType", "Density"}}},
    {"MeasuredType", "05", {{"cmbMeasuredType", "Brix"}}},
    {"PositionMounting", "00", {{"cmbPositionMounting", "Reverse"}}},
    {"TRDLinType", "01", {{"cmbDensityLinearizationType", "User Defined(Table)"}}},
};

// Output unit g/cm³, which has no factor, sensor unit kPa.
const Fills kOutputScale = {
    {"MeasuredType", "05", {{"cmbMeasType", "Brix"}}},
    {"TRDOutScale", "4000000000000000", {{"txtParameter(92)", "2.000"}, {"txtParameter(81)", "0.000"}}},
    {"TRDOutUnit",
     "044C",
     {{"cmbUnitScaleOutput", "g/cm³"},
      {"txtParameter(198)", "1"},
      {"lbArray(313)", "g/cm³"},
      {"lbArray(314)", "g/cm³"}}},
    {"TRDSensorUnit",
     "046D",
     {{"txtParameter(199)", "kPa"}, {"txtParameter(197)", "0.248642"}, {"txtParameter(200)", "4.02184667111751"}}},
    {"TRDUpperSnsLimit", "42C80000", {{"txtParameter(201)", "100.000"}, {"txtParameter(194)", "402.184667111751"}}},
    {"TRDLowerSnsLimit", "C2C80000", {{"txtParameter(202)", "-100.000"}, {"txtParameter(193)", "-402.184667111751"}}},
};

TEST(Density, TheNodeOpensThePageAndFillsItsListsOnce) {
  PageDriver driver;
  const std::string types = driver.Items("cmbMeasType");
  EXPECT_EQ(types,
            R"j(["Density (g/cm³)","Density (kg/m³)","Density (20°C)","Density (4°C)","Baume","Brix","Plato","INPM",)j"
            R"j("Alcohol (0-100)","Solid %","lb/ft³","API","Concentration","t/m³"])j");
  EXPECT_EQ(driver.Items("cmbMeasuredType"), "[]");
  driver.Activate("Density/Concentration");
  EXPECT_EQ(driver.Page(), "TRD Density Settings / Settings");
  EXPECT_TRUE(driver.Visible("frmTRDDensity"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  EXPECT_EQ(driver.Traffic(), Strings{"read 63"});
  EXPECT_EQ(driver.Items("cmbDensityPrimaryValueType"), R"j(["Pressure","Flow","Level","Density"])j");
  EXPECT_EQ(driver.Items("cmbDensityLinearizationType"), R"j(["No Linearization.","User Defined(Table)"])j");
  EXPECT_EQ(driver.Items("cmbMeasuredType"), types);
  EXPECT_EQ(driver.Items("cmbMeasType"), types);
  EXPECT_EQ(driver.Items("cmbPositionMounting"), R"j(["Reverse","Direct"])j");
  EXPECT_EQ(driver.Items("cmbPressSimulateEnable"), R"j(["Disable","Enable"])j");
  EXPECT_EQ(driver.Items("cmbDensBackupRestore"),
            R"j(["Initial Value","Restore Factory Calibration","Restore Last Calibration","Sensor Data Restore",)j"
            R"j("Backup Factory Calibration","Backup Last Calibration"])j");
  EXPECT_EQ(driver.Items("cmbDensityRangeCode"),
            R"j(["Range 1 (0.5 @ 1.8 g/cm³)","Range 2 (1.0 @ 2.5 g/cm³)","Range 3 (2.0 @ 5.0 g/cm³)"])j");
  driver.Choose("cmbMeasuredType", "Plato");
  driver.Tab("SSTabDensity", 4);
  driver.Activate("Density/Concentration");
  EXPECT_EQ(driver.Text("cmbMeasuredType"), "Plato");
  EXPECT_EQ(driver.Get("SSTabDensity")["index"], 0);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 70", "read 63", "read 63"}));  // the tab's own read, then the node's
}

TEST(Density, AnswersFillTheirFieldsInOrder) {
  ExpectFillsInOrder(6300, kSettings, OpenSettings);
  ExpectFillsInOrder(
      6100,
      {{"TRDInputScale", "42480000C1A00000", {{"txtParameter(99)", "50.000"}, {"txtParameter(100)", "-20.000"}}},
       {"TRDPressUnit", "0471", {{"cmbPressureUnit", "bar"}}}},
      OpenSettings);
  ExpectFillsInOrder(7000,
                     {{"TRDDebugEnable", "01", {{"cmbPressSimulateEnable", "Enable"}}},
                      {"TRDFloatDebug", "40A00000", {{"txtParameter(136)", "5.000"}}},
                      {"TRDTempSimulate", "C1480000", {{"txtParameter(338)", "-12.500"}}}},
                     OpenSettings);
  ExpectFillsInOrder(7100, {{"TRDRangeCode", "02", {{"cmbDensityRangeCode", "Range 3 (2.0 @ 5.0 g/cm³)"}}}},
                     OpenSettings);
}

TEST(Density, AnotherTypeIsToldAndTheRestStillFills) {
  PageDriver driver;
  OpenSettings(driver);
  Fills level = kSettings;
  level[0].value = "0002";
  driver.AnswerFills(6300, level);
  const Json shown = driver.Shown();
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_EQ(shown[0]["text"], "Please, note that HTR60 is not configured to Density measurement.");
  EXPECT_EQ(shown[0]["caption"], "Primary Value Type");
  EXPECT_EQ(shown[0]["icon"], "information");
  EXPECT_EQ(driver.Text("cmbDensityPrimaryValueType"), "Level");
  EXPECT_EQ(driver.Text("cmbDensityLinearizationType"), "User Defined(Table)");
  driver.AnswerFills(6300, kSettings);
  EXPECT_TRUE(driver.Shown().empty());
}

TEST(Density, CodesWithoutATextLeaveTheLists) {
  PageDriver driver;
  OpenSettings(driver);
  driver.AnswerFills(6300, kSettings);
  Fills unknown = kSettings;
  for (Filled& row : unknown) row.value = "7E";
  driver.AnswerFills(6300, unknown);
  driver.AnswerTags(7000, {{"TRDDebugEnable", "01"}, {"TRDFloatDebug", "0"}, {"TRDTempSimulate", "0"}});
  driver.AnswerTags(7000, {{"TRDDebugEnable", "02"}, {"TRDFloatDebug", "3F800000"}, {"TRDTempSimulate", "0"}});
  for (const Filled& row : kSettings) EXPECT_EQ(driver.Text(row.fields[0].first), row.fields[0].second);
  EXPECT_EQ(driver.Text("cmbPressSimulateEnable"), "Enable");
  EXPECT_EQ(driver.Text("txtParameter(136)"), "1.000");
}

TEST(Density, TabsNameTheirPageAndRead) {
  struct Case {
    int tab;
    const char* page;
    bool write;
    Strings traffic;
  };
  // The last tab reads twice when it is opened.
  const Case cases[] = {
      {1, "TRD Density Settings / x", false, {}},
      {2, "TRD Density Settings / x", false, {}},
      {3, "TRD Density Settings / Backup Restore", true, {"read 40"}},
      {4, "TRD Density Settings / Simulate", true, {"read 70"}},
      {5, "TRD Density Settings / Range Code", true, {"read 71"}},
      {6, "TRD Density Settings / Sensor Value", false, {"read 53", "read 53"}},
      {0, "TRD Density Settings / Settings", true, {"read 63"}},
  };
  PageDriver driver;
  OpenSettings(driver);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.tab);
    driver.SetMember("CurrentPage", "y");
    driver.SetMember("SubPage", "x");
    driver.SetMember("RequestCode", "y");
    driver.Tab("SSTabDensity", c.tab);
    EXPECT_EQ(driver.Page(), c.page);
    EXPECT_EQ(driver.Enabled("cmdWriteParameter"), c.write);
    EXPECT_EQ(driver.Traffic(), c.traffic);
    EXPECT_EQ(driver.Member("RequestCode"), c.traffic.empty() ? "0" : c.traffic[0].substr(5));
    EXPECT_EQ(driver.Timer("TimerDiagnosisTab3")["enabled"], c.tab == 6);
  }
}

TEST(Density, OthersGoesOnReadingUntilItIsLeft) {
  PageDriver driver;
  OpenSettings(driver);
  driver.Tab("SSTabDensity", 6);
  EXPECT_EQ(driver.Timer("TimerDiagnosisTab3")["interval"], 6000);
  driver.Requests();
  driver.Advance(5999);
  EXPECT_EQ(driver.Traffic(), Strings{});
  driver.Advance(6001);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 53", "read 53"}));
  EXPECT_EQ(driver.Panel(), "Reading Xmtr Data...");
  driver.Tab("SSTabDensity", 1);
  driver.Advance(20000);
  EXPECT_EQ(driver.Traffic(), Strings{});
}

TEST(Density, OthersWithoutAChannelStartsNoPolling) {
  PageDriver driver;
  OpenSettings(driver);
  driver.Ok({{"do", "fail"}, {"reads", true}, {"writes", false}});
  driver.Tab("SSTabDensity", 6);
  EXPECT_EQ(driver.Timer("TimerDiagnosisTab3")["enabled"], false);
  EXPECT_EQ(driver.Page(), "TRD Density Settings / Sensor Value");
}

TEST(Density, EachTabWritesItsOwnAndReadsItBack) {
  PageDriver driver;
  OpenSettings(driver);
  driver.Choose("cmbDensityPrimaryValueType", "Density");
  driver.Choose("cmbMeasuredType", "t/m³");
  driver.Choose("cmbPositionMounting", "Direct");
  driver.Choose("cmbDensityLinearizationType", "User Defined(Table)");
  driver.Choose("cmbDensBackupRestore", "Backup Last Calibration");
  driver.Choose("cmbPressSimulateEnable", "Enable");
  driver.Type("txtParameter(136)", "5");
  driver.Type("txtParameter(338)", "-12.5");
  driver.Choose("cmbDensityRangeCode", "Range 3 (2.0 @ 5.0 g/cm³)");
  struct Case {
    int tab;
    const char* write;
    const char* reread;
  };
  const Case cases[] = {
      {4, "write 60: 01, 40A00000, C1480000", "read 70"},
      {5, "write 61: 02", "read 71"},
      {3, "write 32: 0C", "read 40"},
      {0, "write 51: 0081, 0D, 01, 01", "read 63"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.tab);
    driver.Tab("SSTabDensity", c.tab);
    driver.Requests();
    driver.Click("cmdWriteParameter");
    driver.Advance(2000);
    EXPECT_EQ(driver.Traffic(), (Strings{c.write, c.reread}));
  }
  // The choices of a simulation are not those of the other pages: its "Disable" goes out as 00 all the same.
  driver.Tab("SSTabDensity", 4);
  driver.Choose("cmbPressSimulateEnable", "Disable");
  driver.Type("txtParameter(338)", "1");
  driver.Requests();
  driver.Click("cmdWriteParameter");
  EXPECT_EQ(driver.Traffic(), Strings{"write 60: 00, 40A00000, 3F800000"});
}

TEST(Density, ANumberThatIsNoneSendsNothing) {
  PageDriver driver;
  OpenSettings(driver);
  driver.Tab("SSTabDensity", 4);
  driver.Type("txtParameter(136)", "99999999999");
  driver.Type("txtParameter(338)", "1");
  driver.Requests();
  driver.Click("cmdWriteParameter");
  EXPECT_EQ(driver.Traffic(), Strings{});
  EXPECT_EQ(driver.Timer("TimerReadAfterWrite")["enabled"], false);
}

TEST(DensityScales, ThePressureScaleHasNoSensorLimits) {
  PageDriver driver;
  OpenSettings(driver);
  driver.Click("cmdDensTrdInputScale");
  EXPECT_EQ(driver.Page(), "Trd Density Input Scale / Settings");
  EXPECT_EQ(driver.Get("cmbPressureUnit")["items"].size(), 17U);
  EXPECT_EQ(driver.Text("lbArray(107)"), "Pressure Unit (EU)");
  EXPECT_EQ(driver.Text("frmzGroup(13)"), "Transducer Pressure Scale");
  EXPECT_FALSE(driver.Visible("frmzGroup(8)"));
  EXPECT_TRUE(driver.Visible("frmTRDInputScale"));
  EXPECT_FALSE(driver.Visible("frmTRDDensity"));
  EXPECT_TRUE(driver.Enabled("cmdBack"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  driver.Type("txtParameter(99)", "50");
  driver.Type("txtParameter(100)", "-20");
  driver.Choose("cmbPressureUnit", "bar");
  driver.Click("cmdWriteParameter");
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 61", "write 49: 42480000C1A00000, 0471", "read 61"}));
}

TEST(DensityScales, TheOutputScaleOnlyShows) {
  PageDriver driver;
  OpenSettings(driver);
  driver.Click("cmdDensTrdOutputScale");
  EXPECT_EQ(driver.Page(), "Trd Density Output Scale / Settings");
  EXPECT_EQ(driver.Traffic(), Strings{"read 62"});
  EXPECT_EQ(
      driver.Items("cmbUnitScaleOutput"),
      R"j(["kg/m³","g/cm³","lb/ft³","degBrix","% plato","Baume","INPM","% sol/wt","GL","API","CONC","%","t/m³"])j");
  for (const char* field : {"txtParameter(92)", "txtParameter(81)", "cmbUnitScaleOutput", "cmdWriteParameter"}) {
    EXPECT_FALSE(driver.Enabled(field)) << field;
  }
  for (const char* hidden : {"Command1", "Command2", "frmzGroup(34)"}) EXPECT_FALSE(driver.Visible(hidden)) << hidden;
  EXPECT_TRUE(driver.Visible("frmzGroup(61)"));
  EXPECT_EQ(driver.Get("frmzGroup(34)")["top"], 4560);
  EXPECT_EQ(driver.Get("frmzGroup(61)")["top"], 3120);
  EXPECT_EQ(driver.Text("frmzGroup(14)"), "Transducer Density Scale");
  EXPECT_EQ(driver.Text("frmzGroup(33)"), "Transducer Density Unit");
  EXPECT_TRUE(driver.Enabled("cmdBack"));
}

TEST(DensityScales, TheAnswerConvertsTheLimits) {
  // Four texts are 1 before anything is taken.
  ExpectFillsInOrder(6200, kOutputScale, [](PageDriver& driver) {
    OpenOutput(driver);
    driver.Answer(6200, "<Answer></Answer>");
  });
  PageDriver driver;
  OpenOutput(driver);
  driver.Answer(6200, "<Answer></Answer>");
  for (const char* field : {"txtParameter(197)", "txtParameter(198)", "txtParameter(194)", "txtParameter(193)"}) {
    EXPECT_EQ(driver.Text(field), "1") << field;
  }
  // A unit that the list does not hold ends the handler without a word.
  Fills foreign = kOutputScale;
  foreign[2].value = "046D";
  driver.AnswerFills(6200, foreign);
  EXPECT_EQ(driver.Text("txtParameter(92)"), "2.000");
  EXPECT_EQ(driver.Text("cmbUnitScaleOutput"), "");
  EXPECT_EQ(driver.Text("txtParameter(199)"), "");
  EXPECT_TRUE(driver.Shown().empty());
  // A measured type without a text leaves the list.
  Fills unknown = kOutputScale;
  unknown[0].value = "0E";
  driver.AnswerFills(6200, kOutputScale);
  driver.AnswerFills(6200, unknown);
  EXPECT_EQ(driver.Text("cmbMeasType"), "Brix");
}

TEST(DensityScales, OnlyTheMeasuredTypeCanBeWritten) {
  PageDriver driver;
  OpenOutput(driver);
  driver.Choose("cmbMeasType", "API");
  driver.Click("CmdWriteMeasType");
  EXPECT_EQ(driver.Member("RequestCode"), "54");
  EXPECT_EQ(driver.Member("CheckOutScaleAfterWrite"), -1);
  EXPECT_EQ(driver.Panel(), "Writing Xmtr Data...");
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), (Strings{"write 54: 0B", "read 62"}));
  driver.AnswerFills(6200, kOutputScale);
  EXPECT_EQ(driver.Member("CheckOutScaleAfterWrite"), -1);  // this answer does not consume it
  EXPECT_EQ(driver.Timer("TimerWriteCopyTrdOut")["enabled"], false);
  // The write of the scale belongs to a button that is disabled here.
  driver.SetMember("CheckOutScaleAfterWrite", 0);
  driver.Force("cmdWriteParameter");
  EXPECT_EQ(driver.Traffic(), Strings{"write 50: 4000000000000000, 044C"});
  EXPECT_EQ(driver.Member("CheckOutScaleAfterWrite"), 0);
}

// The three pages of numbers, each field with its tag, in the order of the tags.
struct NumberPage {
  const char* button;
  const char* page;
  const char* frame;
  int read;
  int write;
  std::vector<std::pair<std::string, int>> fields;
  int decimals;
  std::vector<std::size_t> written = {};  // order of the write where it is not that of the tags
};

const NumberPage kNumberPages[] = {
    {"cmdConstant",
     "Constant",
     "frmConstants",
     58,
     46,
     {{"Gravity", 218},
      {"Height", 217},
      {"LinearDilatation", 215},
      {"PressureCoeff", 216},
      {"ZeroAdjustTemp", 219},
      {"heighMeasTemp", 220}},
     7},
    {"cmdConcentration",
     "Concentration",
     "frmConcentration",
     59,
     47,
     {{"K0", 238},        {"K1", 237},        {"K2", 236},        {"K3", 235},        {"K4", 234},    {"K5", 233},
      {"K6", 232},        {"K7", 231},        {"K8", 239},        {"K9", 240},        {"K10", 241},   {"K11", 242},
      {"K12", 243},       {"K13", 244},       {"K14", 245},       {"K15", 246},       {"K16", 247},   {"K17", 339},
      {"HiLimDens", 251}, {"LoLimDens", 252}, {"HiLimTemp", 249}, {"LoLimTemp", 250}, {"KDens", 253}, {"KTemp", 254}},
     8,
     {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 20, 21, 18, 19, 22, 23}},
    {"cmdSolid",
     "Solid",
     "frmSolidCoefficients",
     60,
     48,
     {{"Coeff0", 228},
      {"Coeff1", 227},
      {"Coeff2", 226},
      {"Coeff3", 225},
      {"Coeff4", 224},
      {"Coeff5", 221},
      {"LimHi", 230},
      {"LimLo", 229}},
     7},
};

std::string Digits(double value) {
  char text[16];
  std::snprintf(text, sizeof text, "%08X", std::bit_cast<std::uint32_t>(static_cast<float>(value)));
  return text;
}

std::string Field(int index) { return "txtParameter(" + std::to_string(index) + ")"; }

// The height's dilatation alone of the constants has a decimal more.
int Decimals(const NumberPage& page, const std::string& tag) { return tag == "LinearDilatation" ? 8 : page.decimals; }

TEST(DensityNumbers, AnswersFillTheirFieldsInOrder) {
  for (const NumberPage& page : kNumberPages) {
    SCOPED_TRACE(page.page);
    Fills fills;
    double value = 0.5;
    for (const auto& [tag, field] : page.fields) {
      char text[32];
      std::snprintf(text, sizeof text, "%.*f", Decimals(page, tag), value);
      fills.push_back({tag, Digits(value), {{Field(field), text}}});
      value = value > 0 ? -value - 1 : -value + 0.25;
    }
    ExpectFillsInOrder(page.read * 100, fills);
  }
}

TEST(DensityNumbers, PagesWriteAllTheirNumbersAndReadThemBack) {
  for (const NumberPage& page : kNumberPages) {
    SCOPED_TRACE(page.page);
    PageDriver driver;
    OpenSettings(driver);
    driver.Tab("SSTabDensity", 2);
    driver.Click(page.button);
    EXPECT_EQ(driver.Page(), std::string(page.page) + " / Settings");
    EXPECT_TRUE(driver.Visible(page.frame));
    EXPECT_FALSE(driver.Visible("frmTRDDensity"));
    EXPECT_TRUE(driver.Enabled("cmdBack"));
    EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
    std::string write = "write " + std::to_string(page.write);
    const char* before = ": ";
    for (std::size_t i = 0; i < page.fields.size(); ++i) {
      driver.Type(Field(page.fields[i].second), std::to_string(i + 1));
      const std::size_t written = page.written.empty() ? i : page.written[i];
      write += std::exchange(before, ", ") + Digits(static_cast<double>(written + 1));
    }
    driver.Click("cmdWriteParameter");
    driver.Advance(2000);
    const std::string read = "read " + std::to_string(page.read);
    EXPECT_EQ(driver.Traffic(), (Strings{read, write, read}));
  }
}

TEST(DensityNumbers, ConstantsAlsoOpenFromTheFactoryMenu) {
  PageDriver driver;
  driver.Force("Command5");
  EXPECT_EQ(driver.Member("CurrentPage"), "Constant_Level");
  EXPECT_TRUE(driver.Visible("frmConstants"));
  EXPECT_TRUE(driver.Enabled("cmdBack"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  for (const int field : {215, 216, 217, 218, 219, 220}) driver.Type(Field(field), "2");
  driver.Click("cmdWriteParameter");
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(),
            (Strings{"read 58", "write 46: 40000000, 40000000, 40000000, 40000000, 40000000, 40000000", "read 58"}));
  driver.Click("cmdBack");
  EXPECT_EQ(driver.Member("CurrentPage"), "Factory Password");
  EXPECT_TRUE(driver.Visible("frmFactoryPassword"));
  EXPECT_FALSE(driver.Visible("frmConstants"));
  EXPECT_TRUE(driver.Enabled("cmdBack"));
}

TEST(Density, BackLeadsToAPageNameThatNothingKnows) {
  for (const char* button :
       {"cmdConstant", "cmdConcentration", "cmdSolid", "cmdDensTrdInputScale", "cmdDensTrdOutputScale"}) {
    SCOPED_TRACE(button);
    PageDriver driver;
    OpenSettings(driver);
    driver.Click(button);
    driver.Requests();
    driver.Click("cmdBack");
    EXPECT_EQ(driver.Page(), "TRD Density / Settings");
    EXPECT_TRUE(driver.Visible("frmTRDDensity"));
    EXPECT_FALSE(driver.Enabled("cmdBack"));
    driver.Force("cmdWriteParameter");
    driver.Advance(10000);
    EXPECT_EQ(driver.Traffic(), Strings{});
    driver.Tab("SSTabDensity", 4);
    EXPECT_EQ(driver.Page(), "TRD Density Settings / Simulate");
  }
}

// ---- with the simulated transmitter

constexpr int kSettled = 5000;  // longer than a write, its re-read and the answer

PageDriver CoveredVessel() {
  return PageDriver(Driver::Simulated(
      {{"device", {{"primaryValueType", "Density"}}}, {"process", {{"vessel", {{"density", 1040}, {"level", 2}}}}}}));
}

TEST(DensityCommissioning, EveryMeasuredTypeFollowsThroughToItsScaleAndValue) {
  struct Case {
    const char* type;
    const char* unit;
    const char* upper;
    double value;
  };
  const Case cases[] = {
      {"Density (kg/m³)", "kg/m³", "1800.000", 1040.0},
      {"Density (20°C)", "g/cm³", "1.800", 1.040},
      {"Baume", "Baume", "60.000", 5.827},
      {"Brix", "degBrix", "100.000", 10.444},
      {"Plato", "% plato", "100.000", 10.445},
      {"lb/ft³", "lb/ft³", "112.370", 64.925},
      {"API", "API", "100.000", 4.313},
      {"t/m³", "t/m³", "1.800", 1.040},
      {"Density (g/cm³)", "g/cm³", "1.800", 1.040},
  };
  PageDriver driver = CoveredVessel();
  driver.Activate("Density/Concentration");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbDensityPrimaryValueType"), "Density");
  EXPECT_EQ(driver.Text("cmbMeasuredType"), "Density (g/cm³)");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.type);
    driver.Click("cmdDensTrdOutputScale");
    driver.Choose("cmbMeasType", c.type);
    driver.Click("CmdWriteMeasType");
    driver.Advance(kSettled);
    EXPECT_EQ(driver.Text("cmbMeasType"), c.type);
    EXPECT_EQ(driver.Text("cmbUnitScaleOutput"), c.unit);
    EXPECT_EQ(driver.Text("txtParameter(92)"), c.upper);
    driver.Click("cmdBack");
    driver.Tab("SSTabDensity", 6);
    driver.Advance(kSettled);
    EXPECT_NEAR(std::stod(driver.Text("txtParameter(352)")), c.value, 0.002);
    EXPECT_EQ(driver.Text("lbArray(499)"), c.unit);
    EXPECT_EQ(driver.Text("lbArray(469)"), c.type);
    EXPECT_EQ(driver.Text("txtParameter(320)"), "20.000");
    driver.Tab("SSTabDensity", 1);
  }
}

TEST(DensityCommissioning, SimulatedPressureAndConstantsGiveTheDensity) {
  PageDriver driver = CoveredVessel();
  driver.Activate("Density/Concentration");
  driver.Tab("SSTabDensity", 2);
  driver.Click("cmdConstant");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(217)"), "0.5000000");
  driver.Type("txtParameter(217)", "1");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(217)"), "1.0000000");
  driver.Click("cmdBack");
  driver.Tab("SSTabDensity", 4);
  driver.Advance(kSettled);
  driver.Choose("cmbPressSimulateEnable", "Enable");
  driver.Type("txtParameter(136)", "9.80665");
  driver.Type("txtParameter(338)", "20");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbPressSimulateEnable"), "Enable");
  driver.Tab("SSTabDensity", 6);
  driver.Advance(kSettled);
  EXPECT_NEAR(std::stod(driver.Text("txtParameter(352)")), 1.0, 0.001);
}

}  // namespace
}  // namespace htr60::automation

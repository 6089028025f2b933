#include <cstdio>
#include <utility>

#include "factory_support.h"

namespace htr60::automation {
namespace {

constexpr const char* kHiFields[] = {"cmbFSensorManufacturer", "cmbFSensorConnected", "cmbFSensorInitialized",
                                     "cmbFSensorType",         "cmbFSensorRangeCode", "cmbFSensorFillFluid",
                                     "txtParameter(140)",      "cmbFSensorDiagMtrl",  "cmbSensorModel"};

void Open(PageDriver& driver) { OpenFromMenu(driver, "cmdSensorFactory"); }

const Fills kSensor = {
    {"SensorManufacturer", "02", {{"cmbFSensorManufacturer", "Metlan"}}},
    {"SensorConnected", "00", {{"cmbFSensorConnected", "Disconnected"}, {"cmbFSensorConnectedLo", "Disconnected"}}},
    {"SensorInitialized", "AA", {{"cmbFSensorInitialized", "Initialized"}}},
    {"SensorInitialized_Lo", "00", {{"cmbFSensorInitializedLo", "Not Initialized"}}},
    {"TRDSensorType", "0075", {{"cmbFSensorType", "Capacitive Sensor"}}},
    {"TRDSensorType_Lo", "0076", {{"cmbFSensorTypeLo", "Silicon Piezo Resistive"}}},
    {"TRDSensorRangeCode", "01", {{"cmbFSensorRangeCode", "Range 1 (7.5 kPa)"}}},
    {"TRDSensorRangeCode_Lo", "FD", {{"cmbFSensorRangeCodeLo", "Special"}}},
    {"TRDSensorFillFluid", "0003", {{"cmbFSensorFillFluid", "fluorolube"}}},
    {"TRDSensorFillFluid_Lo", "00FC", {{"cmbFSensorFillFluidLo", "Unknown"}}},
    {"TRDSensorSerialNumber", "000000FF", {{"txtParameter(140)", "255"}}},
    {"TRDSensorSerialNumber_Lo", "7FFFFFFF", {{"txtParameter(206)", "2147483647"}}},
    {"TRDSensorDiaMtrl", "00F0", {{"cmbFSensorDiagMtrl", "Version RS"}}},
    {"TRDSensorDiaMtrl_Lo", "0005", {{"cmbFSensorDiagMtrlLo", "Tantalum"}}},
    {"TRDSensorModel", "006D", {{"cmbSensorModel", "Absolute"}}},
    {"TRDSensorModel_Lo", "FFFF", {{"cmbSensorModelLo", "Other/Special"}}},
};

const Fills kFlange = {
    {"TRDFlangeType", "0C", {{"cmbFlangeType", "Conventional"}}},
    {"TRDFlangeTypeLo", "EC", {{"cmbFlangeTypeLo", "Level DN80 PN10/16"}}},
    {"TRDFlangeMaterial", "02", {{"cmbFlangeMaterial", "316 Stainless Steel"}}},
    {"TRDFlangeMaterialLo", "FB", {{"cmbFlangeMaterialLo", "None"}}},
    {"TRDORingMaterial", "0A", {{"cmbORingMaterial", "PTFE"}}},
    {"TRDORingMaterialLo", "0D", {{"cmbORingMaterialLo", "Ethyl-Prop"}}},
};

const Fills kBackup = {
    {"BackupRestore", "0F", {{"cmbBackupRes(0)", "Sensor Data Backup"}}},
    {"TRDDeadBandBypass", "01", {{"cmbDeadBandBypass", "True"}}},
};

// The fields of a polynomial in the order in which its numbers travel.
constexpr int kHiCoefficients[] = {152, 153, 154, 155, 163, 164, 162, 165, 166, 167, 168, 169};
constexpr int kLoCoefficients[] = {340, 341, 342, 343, 345, 346, 344, 347, 348, 349, 350, 351};
constexpr int kGains[] = {156, 157, 158, 159, 357, 358, 359, 360};
constexpr const char* kGainTags[] = {"TRDPressGain", "TRDPressSensorOffset", "TRDTempSensorGain", "TRDTempSensorOffSet",
                                     "TRDSns1Gain",  "TRDSns1OffSet",        "TRDSns2Gain",       "TRDSns2OffSet"};

std::string SixDecimals(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.6f", value);
  return text;
}

/// Sixteen numbers, of which twelve have a field.
Filled PolynomialOf(const char* tag, const int (&fields)[12], double first) {
  Filled filled{tag, "", {}};
  for (int i = 0; i < 16; ++i) {
    const double value = (i % 2 == 0 ? 1 : -1) * (first + i / 8.0);
    filled.value += Single(value);
    if (i < 12) filled.fields.emplace_back(Parameter(fields[i]), SixDecimals(value));
  }
  return filled;
}

TEST(FactorySensor, OpensWithItsListsFilledOnce) {
  PageDriver driver;
  driver.Activate("Observe");
  driver.Type("txtPassword", "other");
  driver.Requests();
  driver.Force("cmdSensorFactory");
  EXPECT_EQ(driver.Text("txtPassword"), "");
  EXPECT_FALSE(driver.Timer("TimerDeviceView")["enabled"].get<bool>());
  EXPECT_EQ(driver.Page(), "Factory Sensor / Factory Sensor");
  EXPECT_TRUE(driver.Visible("frmFactorySensorInfo"));
  EXPECT_FALSE(driver.Visible("frmDeviceView"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  EXPECT_TRUE(driver.Enabled("cmdBack"));
  EXPECT_EQ(driver.Traffic(), Strings{"read 46"});
  EXPECT_EQ(driver.Member("FirstVisitSensor"), 0);
  const std::pair<const char*, std::size_t> lists[] = {
      {"cmbFSensorManufacturer", 4}, {"cmbFSensorConnected", 2},  {"cmbFSensorConnectedLo", 2},
      {"cmbFSensorInitialized", 1},  {"cmbFSensorType", 2},       {"cmbFSensorRangeCodeLo", 7},
      {"cmbFSensorFillFluid", 4},    {"cmbFSensorDiagMtrlLo", 8}, {"cmbSensorModel", 3},
      {"cmbFlangeType", 15},         {"cmbFlangeMaterialLo", 3},  {"cmbORingMaterial", 4},
      {"cmbBackupRes(0)", 8},        {"cmbBackupRes(1)", 8},      {"cmbDeadBandBypass", 2},
  };
  for (const auto& [list, rows] : lists) EXPECT_EQ(driver.Get(list)["items"].size(), rows) << list;
  // The factory page's preparation takes the two commands away again, here too.
  Open(driver);
  EXPECT_EQ(driver.Get("cmbBackupRes(0)")["items"].size(), 6U);
}

TEST(FactorySensor, OpensOnItsFirstTabAndReadsForEachStripThatGoesBack) {
  PageDriver driver;
  Open(driver);
  driver.Tab("SSTabSensorHiFactory", 1);
  driver.Tab("SSTabFactorySensorInfo", 3);
  driver.Click("cmdBack");
  driver.Requests();
  driver.Click("cmdSensorFactory");
  EXPECT_EQ(driver.Get("SSTabFactorySensorInfo")["index"], 0);
  EXPECT_EQ(driver.Get("SSTabSensorHiFactory")["index"], 0);
  EXPECT_EQ(driver.Page(), "Factory Sensor / Factory Sensor");
  EXPECT_EQ(driver.Traffic(), (Strings{"read 46", "read 46", "read 46"}));  // inner strip, outer strip, button
}

TEST(FactorySensor, TabsNameTheirPageAndReadAlsoWithoutACode) {
  struct Case {
    const char* strip;
    int tab;
    const char* subPage;
    bool write;
    Strings traffic;
  };
  const char* const outer = "SSTabFactorySensorInfo";
  const Case cases[] = {
      {outer, 2, "Factory Polynomial", true, {"read 49"}},
      {outer, 3, "Factory Gain/OffSet", true, {"read 50"}},
      {outer, 4, "Factory Backup Restore", false, {"read 55"}},
      {outer, 5, "Factory Backup Restore", false, {"read 0"}},
      {outer, 0, "Factory Sensor", true, {"read 46"}},
      {"SSTabSensorHiFactory", 1, "Factory Flange", true, {"read 48"}},
      {"SSTabSensorHiFactory", 0, "Factory Sensor", true, {"read 46"}},
      // The inner strip is at its first tab and says nothing, so no code is known.
      {outer, 1, "Factory Sensor Lo", true, {"read 0"}},
      {"SSTabSensorLoFactory", 1, "Factory Flange Lo", true, {"read 48"}},
      {"SSTabSensorLoFactory", 0, "Factory Sensor Lo", true, {"read 46"}},
      {"SSTabSensorLoFactory", 1, "Factory Flange Lo", true, {"read 48"}},
      {"SSTabSensorHiFactory", 1, "Factory Flange", true, {"read 48"}},
      // Now both inner strips go back, and each sends its own read first.
      {outer, 0, "Factory Sensor", true, {"read 46", "read 46"}},
      {outer, 1, "Factory Sensor Lo", true, {"read 46", "read 46"}},
  };
  PageDriver driver;
  Open(driver);
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.strip) + " " + std::to_string(c.tab) + " " + c.subPage);
    driver.SetMember("CurrentPage", "y");
    driver.Tab(c.strip, c.tab);
    EXPECT_EQ(driver.Page(), std::string("Factory Sensor / ") + c.subPage);
    EXPECT_EQ(driver.Enabled("cmdWriteParameter"), c.write);
    EXPECT_EQ(driver.Traffic(), c.traffic);
    EXPECT_EQ(driver.Panel(), "Reading Xmtr Data...");
  }
}

TEST(FactorySensor, NoTabStopsAPollingTimer) {
  PageDriver driver;
  driver.Activate("Observe");
  for (const auto& [strip, tab] : {std::pair("SSTabFactorySensorInfo", 2), std::pair("SSTabFactorySensorInfo", 1),
                                   std::pair("SSTabSensorLoFactory", 1), std::pair("SSTabSensorHiFactory", 1)}) {
    driver.Tab(strip, tab);
    EXPECT_TRUE(driver.Timer("TimerDeviceView")["enabled"].get<bool>()) << strip;
  }
}

TEST(FactorySensor, AFailedReadLeavesTheNamesOfTheTab) {
  PageDriver driver;
  Open(driver);
  driver.Ok({{"do", "fail"}, {"reads", true}, {"writes", false}});
  driver.Tab("SSTabFactorySensorInfo", 2);
  EXPECT_EQ(driver.Page(), "Factory Sensor / Factory Polynomial");
  EXPECT_EQ(driver.Member("RequestCode"), "49");
  // The inner strip's failure ends that strip's handler alone.
  driver.SetMember("SubPage", "x");
  driver.Tab("SSTabSensorLoFactory", 1);
  driver.Tab("SSTabFactorySensorInfo", 1);
  EXPECT_EQ(driver.Page(), "Factory Sensor / Factory Sensor Lo");
  EXPECT_EQ(driver.Member("RequestCode"), "46");
}

TEST(FactorySensor, AnswersFillTheirFieldsInOrder) {
  ExpectFillsInOrder(4600, kSensor);
  ExpectFillsInOrder(4800, kFlange);
  ExpectFillsInOrder(4900, {{"PolyVersion", "7", {{"txtParameter(2)", "7"}}},
                            PolynomialOf("CoeffPol", kHiCoefficients, 0.5),
                            PolynomialOf("CoeffPolSns2", kLoCoefficients, 100.25)});
  Fills gains;
  for (std::size_t i = 0; i < std::size(kGains); ++i) {
    const double value = 1 - static_cast<double>(i) / 4;
    gains.push_back({kGainTags[i], Single(value), {{Parameter(kGains[i]), SixDecimals(value)}}});
  }
  ExpectFillsInOrder(5000, gains);
  ExpectFillsInOrder(5500, kBackup);
}

TEST(FactorySensor, CodesWithoutATextLeaveTheLists) {
  PageDriver driver;
  for (const auto& [code, fills] : {std::pair(4600, kSensor), std::pair(4800, kFlange), std::pair(5500, kBackup)}) {
    driver.AnswerFills(code, fills);
    Fills unknown = fills;
    for (Filled& row : unknown) row.value = "0000007E";
    driver.AnswerFills(code, unknown);
    for (const Filled& row : fills) {
      for (const auto& [control, text] : row.fields) {
        EXPECT_EQ(driver.Text(control), row.tag.find("Serial") != std::string::npos ? "126" : text) << control;
      }
    }
  }
}

TEST(FactorySensor, TheRemoteSealHasNoFields) {
  PageDriver driver;
  Open(driver);
  driver.SetMember("SubPage", "Factory Remote Seal");
  driver.Click("cmdWriteParameter");
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), (Strings{"write 38", "read 47"}));
  const Json before = Rows(driver);
  driver.AnswerTags(4700, {{"TRDRemoteSealType", "FB"}, {"TRDRemoteSealFluid", "FB"}});
  EXPECT_EQ(Rows(driver), before);
}

void ExpectWritten(PageDriver& driver, const std::string& write, const std::string& read) {
  driver.Requests();
  driver.Click("cmdWriteParameter");
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), (Strings{write, read}));
}

TEST(FactorySensor, SensorsAndFlangesAreWrittenWhole) {
  PageDriver driver;
  Open(driver);
  driver.AnswerFills(4600, kSensor);
  driver.AnswerFills(4800, kFlange);
  ExpectWritten(driver, "write 37: 02, 00, AA, 0075, 01, 0003, 000000FF, 00F0, 006D", "read 46");
  driver.Tab("SSTabSensorHiFactory", 1);
  ExpectWritten(driver, "write 39: 0C, 02, 0A", "read 48");
  driver.Tab("SSTabFactorySensorInfo", 1);
  // What the list of ranges does not offer has no code of its own.
  ExpectWritten(driver, "write 70: 00, 0076, FF, 00FC, 7FFFFFFF, 0005, FFFF", "read 46");
  driver.Tab("SSTabSensorLoFactory", 1);
  ExpectWritten(driver, "write 71: EC, FB, 0D", "read 48");
}

TEST(FactorySensor, TextsThatAreNoRowGoOutAsTheirListSays) {
  PageDriver driver;
  Open(driver);
  for (const char* field : kHiFields) {
    if (std::string_view(field).starts_with("cmb")) driver.SetList(field, "?");
  }
  driver.Type("txtParameter(140)", "1");
  ExpectWritten(driver, "write 37: , , , FF, FF, 00FF, 00000001, 00FF, ", "read 46");
  driver.SetList("cmbFSensorManufacturer", "Not Initialized");
  ExpectWritten(driver, "write 37: FF, , , FF, FF, 00FF, 00000001, 00FF, ", "read 46");
  driver.Tab("SSTabSensorHiFactory", 1);
  for (const char* list : {"cmbFlangeType", "cmbFlangeMaterial", "cmbORingMaterial"}) driver.SetList(list, "?");
  ExpectWritten(driver, "write 39: FF, FF, FF", "read 48");
}

TEST(FactorySensor, SerialNumbersHaveEightDigitsOrStayHome) {
  struct Case {
    const char* text;
    const char* digits;  // null: nothing is sent
  };
  const Case cases[] = {
      {"255", "000000FF"},  {"0", "00000000"},         {"2147483647", "7FFFFFFF"}, {"-1", "FFFFFFFF"},
      {"12.5", "0000000C"}, {"1,234,567", "0012D687"}, {" 7 ", "00000007"},        {"2147483648", nullptr},
      {"", nullptr},        {"12A", nullptr},
  };
  PageDriver driver;
  Open(driver);
  driver.AnswerFills(4600, kSensor);
  driver.Requests();
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    driver.Type("txtParameter(140)", c.text);
    driver.Click("cmdWriteParameter");
    driver.Advance(2000);
    if (c.digits == nullptr) {
      EXPECT_EQ(driver.Traffic(), Strings{});
    } else {
      EXPECT_EQ(driver.Traffic().at(0),
                "write 37: 02, 00, AA, 0075, 01, 0003, " + std::string(c.digits) + ", 00F0, 006D");
    }
  }
}

TEST(FactorySensor, ThePolynomialIsWrittenInTheOrderOfItsNumbers) {
  PageDriver driver;
  Open(driver);
  driver.Tab("SSTabFactorySensorInfo", 2);
  std::string hi;
  std::string lo;
  for (int i = 0; i < 12; ++i) {
    driver.Type(Parameter(kHiCoefficients[i]), std::to_string(i + 1));
    driver.Type(Parameter(kLoCoefficients[i]), "-" + std::to_string(i + 1) + ".5");
    hi += Single(i + 1);
    lo += Single(-i - 1.5);
  }
  ASSERT_EQ(hi.size(), 96U);
  const std::pair<const char*, const char*> versions[] = {
      {"7", "07"}, {"12", "12"}, {"123", "123"}, {"", ""}, {"é", "0é"},
  };
  for (const auto& [typed, sent] : versions) {
    SCOPED_TRACE(typed);
    driver.Type("txtParameter(2)", typed);
    ExpectWritten(driver, std::string("write 40: ") + sent + ", " + hi + ", " + lo, "read 49");
  }
  driver.Type(Parameter(kLoCoefficients[11]), "99999999999");
  driver.Click("cmdWriteParameter");
  EXPECT_EQ(driver.Traffic(), Strings{});
}

TEST(FactorySensor, GainsAndOffsetsAreWrittenTogether) {
  PageDriver driver;
  Open(driver);
  driver.Tab("SSTabFactorySensorInfo", 3);
  std::string write = "write 41";
  for (std::size_t i = 0; i < std::size(kGains); ++i) {
    driver.Type(Parameter(kGains[i]), std::to_string(i + 1) + ".25");
    write += (i == 0 ? ": " : ", ") + Single(static_cast<double>(i) + 1.25);
  }
  ExpectWritten(driver, write, "read 50");
}

// Commands of small buttons, which ask for no connection.
TEST(FactorySensor, BackupAndZeroFilterHaveButtonsOfTheirOwn) {
  struct Case {
    const char* list;
    const char* button;
    const char* text;
    const char* code;
    const char* digits;
  };
  const Case cases[] = {
      {"cmbBackupRes(0)", "cmdWriteBackupRestore", "Initial Value", "32", "00"},
      {"cmbBackupRes(0)", "cmdWriteBackupRestore", "Restore Factory Calibration", "32", "01"},
      {"cmbBackupRes(0)", "cmdWriteBackupRestore", "Restore Last Calibration", "32", "02"},
      {"cmbBackupRes(0)", "cmdWriteBackupRestore", "Restore Trd Blk Default Data", "32", "03"},
      {"cmbBackupRes(0)", "cmdWriteBackupRestore", "Sensor Data Restore", "32", "05"},
      {"cmbBackupRes(0)", "cmdWriteBackupRestore", "Backup Factory Calibration", "32", "0B"},
      {"cmbBackupRes(0)", "cmdWriteBackupRestore", "Backup Last Calibration", "32", "0C"},
      {"cmbBackupRes(0)", "cmdWriteBackupRestore", "Sensor Data Backup", "32", "0F"},
      {"cmbBackupRes(0)", "cmdWriteBackupRestore", "Backup", "32", ""},
      {"cmbDeadBandBypass", "cmdWriteZeroFilter", "True", "43", "01"},
      {"cmbDeadBandBypass", "cmdWriteZeroFilter", "False", "43", "00"},
      {"cmbDeadBandBypass", "cmdWriteZeroFilter", "", "43", ""},
  };
  PageDriver driver;
  Open(driver);
  driver.Tab("SSTabFactorySensorInfo", 4);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    driver.SetMember("ConnectionState", "Disconnected");
    driver.SetList(c.list, c.text);
    driver.Requests();
    driver.Click(c.button);
    EXPECT_EQ(driver.Traffic(), Strings{std::string("write ") + c.code + ": " + c.digits});
    EXPECT_EQ(driver.Member("RequestCode"), c.code);
    EXPECT_EQ(driver.Panel(), "Writing Xmtr Data...");
    driver.Connect();
    driver.Advance(2000);
    EXPECT_EQ(driver.Traffic(), Strings{"read 55"});
  }
  EXPECT_TRUE(driver.Shown().empty());
}

TEST(FactorySensor, BackFromItsCalibrationLeavesNoWayBackButTheTree) {
  for (const char* page : {"Cal With Ref", "Cal Without Ref"}) {
    PageDriver driver;
    Open(driver);
    driver.Tab("SSTabFactorySensorInfo", 5);
    driver.SetMember("CurrentPage", page);
    driver.Click("cmdBack");
    EXPECT_EQ(driver.Member("CurrentPage"), "Factory Sensor");
    EXPECT_TRUE(driver.Visible("frmFactorySensorInfo"));
    EXPECT_FALSE(driver.Enabled("cmdBack"));
    EXPECT_FALSE(driver.Enabled("cmdWriteParameter"));
  }
}

TEST(FactorySensorScreen, MarksASensorThatIsNotThere) {
  PageDriver driver;
  Open(driver);
  driver.AnswerFills(4600, kSensor);
  const auto marks = [&] {
    std::string found;
    const Json rows = Rows(driver);
    for (const Json& row : rows) {
      if (row.at("mark") != "")
        found += row.at("control").get<std::string>() + " " + row.at("kind").get<std::string>() + ";";
    }
    return found;
  };
  EXPECT_EQ(marks(), "cmbFSensorConnected list;");
  EXPECT_EQ(Screen(driver)["dataLine"].get<std::string>().substr(0, 5), "Read ");
  driver.Tab("SSTabFactorySensorInfo", 1);
  EXPECT_EQ(marks(), "cmbFSensorConnectedLo list-ro;cmbFSensorInitializedLo list;");
}

// ---- with the simulated transmitter

double Trim(PageDriver& driver) { return Simulated(driver, "trim")["value"]; }

class Instrument : public PageDriver {
 public:
  Instrument() : PageDriver(Driver::Simulated()) {
    Open(*this);
    Advance(kSettled);
  }
};

void Command(PageDriver& driver, const char* command) {
  driver.Tab("SSTabFactorySensorInfo", 4);
  driver.Choose("cmbBackupRes(0)", command);
  WriteAndWait(driver, "cmdWriteBackupRestore");
  EXPECT_EQ(StateOf(driver, "cmbBackupRes(0)"), std::string("shown: device shows: ") + command);
}

TEST(FactorySensorAtTheInstrument, EveryPageWrittenBackUnchangedChangesNothing) {
  Instrument driver;
  for (const auto& [strip, tab] : {std::pair("SSTabSensorHiFactory", 1), std::pair("SSTabSensorHiFactory", 0),
                                   std::pair("SSTabFactorySensorInfo", 1), std::pair("SSTabSensorLoFactory", 1),
                                   std::pair("SSTabSensorLoFactory", 0), std::pair("SSTabFactorySensorInfo", 2),
                                   std::pair("SSTabFactorySensorInfo", 3)}) {
    SCOPED_TRACE(std::string(strip) + " " + std::to_string(tab));
    driver.Tab(strip, tab);
    driver.Advance(kSettled);
    const Json before = Rows(driver);
    ASSERT_FALSE(before.empty());
    for (const Json& row : before) EXPECT_NE(row.at("text"), "") << row;
    driver.Ok({{"do", "simulator"}, {"log", true}});
    WriteAndWait(driver);
    const Json log = driver.Ok({{"do", "simulator"}, {"log", true}})["log"];
    EXPECT_FALSE(log.empty());
    EXPECT_EQ(log.dump().find("refused"), std::string::npos) << log;
    const Json after = Rows(driver);
    for (std::size_t i = 0; i < before.size(); ++i) EXPECT_EQ(after.at(i).at("text"), before.at(i).at("text"));
  }
  EXPECT_NEAR(Trim(driver), 10.0, 1e-4);
}

TEST(FactorySensorAtTheInstrument, ASpoiltCalibrationIsBroughtBack) {
  Instrument driver;
  Command(driver, "Backup Last Calibration");
  driver.Tab("SSTabFactorySensorInfo", 3);
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(156)"), "1.000000");
  driver.Type("txtParameter(156)", "1.05");
  driver.Type("txtParameter(157)", "0.25");
  WriteAndWait(driver);
  EXPECT_EQ(StateOf(driver, "txtParameter(157)"), "confirmed: confirmed");
  EXPECT_NEAR(Trim(driver), 10.75, 1e-4);
  driver.Type("txtParameter(156)", "2.5");  // beyond what the device takes
  WriteAndWait(driver);
  EXPECT_EQ(StateOf(driver, "txtParameter(156)").substr(0, 15), "differs: device");
  EXPECT_NEAR(Trim(driver), 10.75, 1e-4);
  Command(driver, "Restore Last Calibration");
  EXPECT_NEAR(Trim(driver), 10.0, 1e-4);
  driver.Tab("SSTabFactorySensorInfo", 3);
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(156)"), "1.000000");
  EXPECT_EQ(driver.Text("txtParameter(157)"), "0.000000");
}

TEST(FactorySensorAtTheInstrument, SensorDataAreBackedUpAndBroughtBack) {
  Instrument driver;
  Command(driver, "Sensor Data Backup");
  driver.Tab("SSTabFactorySensorInfo", 2);
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(153)"), "2.500000");
  driver.Type("txtParameter(153)", "2");
  driver.Type("txtParameter(2)", "9");
  WriteAndWait(driver);
  EXPECT_EQ(driver.Text("txtParameter(2)"), "09");
  EXPECT_EQ(StateOf(driver, "txtParameter(153)"), "confirmed: confirmed");
  EXPECT_NEAR(Trim(driver), 6.0, 1e-4);  // the Hi sensor now reads 16 kPa of its 20
  driver.Tab("SSTabFactorySensorInfo", 0);
  driver.Advance(kSettled);
  driver.Type("txtParameter(140)", "255");
  WriteAndWait(driver);
  EXPECT_EQ(Simulated(driver, "sensorSerial.hi"), "000000FF");
  Command(driver, "Sensor Data Restore");
  EXPECT_EQ(Simulated(driver, "sensorSerial.hi"), "00003039");
  EXPECT_EQ(Simulated(driver, "polyVersion"), "01");
  EXPECT_NEAR(Trim(driver), 10.0, 1e-4);
}

TEST(FactorySensorAtTheInstrument, EveryCommandIsTakenAndToldByAllThreeLists) {
  Instrument driver;
  driver.Tab("SSTabFactorySensorInfo", 4);
  const Json commands = driver.Get("cmbBackupRes(0)")["items"];
  ASSERT_EQ(commands.size(), 8U);
  for (const std::string command : commands) {
    SCOPED_TRACE(command);
    Command(driver, command.c_str());
    driver.Activate("Factory");
    driver.Advance(kSettled);
    EXPECT_EQ(driver.Text("cmbBackupRes(1)"), command);
    EXPECT_EQ(driver.Text("cmbDensBackupRestore"), command);
    driver.Force("cmdSensorFactory");
  }
}

TEST(FactorySensorAtTheInstrument, TheZeroFilterHoldsSmallPressuresAtZero) {
  Instrument driver;
  Set(driver, {{"process", {{"pressureHi", 10010}, {"pressureLo", 10000}}}});  // 0.027 % of the range
  driver.Tab("SSTabFactorySensorInfo", 4);
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbDeadBandBypass"), "False");
  EXPECT_NEAR(Simulated(driver, "press")["value"], 0.01, 1e-5);
  driver.Choose("cmbDeadBandBypass", "True");
  WriteAndWait(driver, "cmdWriteZeroFilter");
  EXPECT_EQ(StateOf(driver, "cmbDeadBandBypass"), "confirmed: confirmed");
  EXPECT_EQ(Simulated(driver, "press")["value"], 0.0);
}

TEST(FactorySensorAtTheInstrument, ADisconnectedSensorIsSeenOnBothSides) {
  Instrument driver;
  driver.Choose("cmbFSensorConnected", "Disconnected");
  WriteAndWait(driver);
  EXPECT_EQ(driver.Text("cmbFSensorConnectedLo"), "Disconnected");
  EXPECT_EQ(Simulated(driver, "diag")["value"], 3);
}

TEST(FactorySensorAtTheInstrument, ALockedDeviceKeepsItsDataAndRefusesCommands) {
  Instrument driver;
  driver.Choose("cmbFSensorFillFluid", "Inert");
  Set(driver, {{"device", {{"writeLocked", true}}}});
  WriteAndWait(driver);
  EXPECT_EQ(StateOf(driver, "cmbFSensorFillFluid"), "differs: device: Silicone oil, sent: Inert");
  driver.Tab("SSTabFactorySensorInfo", 4);
  driver.Choose("cmbBackupRes(0)", "Backup Factory Calibration");
  WriteAndWait(driver, "cmdWriteBackupRestore");
  EXPECT_EQ(StateOf(driver, "cmbBackupRes(0)"), "shown: device shows: Initial Value");
  EXPECT_EQ(Simulated(driver, "operResult"), "1A");
  driver.Choose("cmbDeadBandBypass", "True");
  WriteAndWait(driver, "cmdWriteZeroFilter");
  EXPECT_EQ(StateOf(driver, "cmbDeadBandBypass"), "differs: device: False, sent: True");
  Set(driver, {{"device", {{"writeLocked", false}}}});
  WriteAndWait(driver, "cmdWriteZeroFilter");
  EXPECT_EQ(driver.Text("cmbDeadBandBypass"), "False") << "the re-read has put the device's own text there";
}

}  // namespace
}  // namespace htr60::automation

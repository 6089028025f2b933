// The calibration at the simulated transmitter, whose sensors err.
#include "calibration_driver.h"

namespace htr60::automation {
namespace {

constexpr int kSettled = 5200;  // longer than a write, its re-read and the answer, and than the device's wait

Json Erring() { return Driver::Simulated({{"device", {{"gainErrorHi", 0.005}, {"offsetErrorHi", 120}}}}); }

void SetProcess(PageDriver& driver, const Json& process) {
  driver.Ok({{"do", "simulator"}, {"set", {{"process", process}}}});
}

void Apply(PageDriver& driver, double differential) {
  SetProcess(driver, {{"pressureHi", 10'000 + 1000 * differential}, {"pressureLo", 10'000}});
  driver.Advance(kSettled);
}

void SetDevice(PageDriver& driver, const Json& device) {
  driver.Ok({{"do", "simulator"}, {"set", {{"device", device}}}});
}

std::string Verdict(PageDriver& driver) { return driver.Text("txtParameter(43)"); }

void Trim(PageDriver& driver, const char* field, const char* button, const std::string& text) {
  driver.Type(field, text);
  driver.Click(button);
  driver.Advance(kSettled);
}
void TrimLower(PageDriver& driver, const std::string& text) {
  Trim(driver, "txtParameter(103)", "cmdWriteCalibLower", text);
}
void TrimUpper(PageDriver& driver, const std::string& text) {
  Trim(driver, "txtParameter(95)", "cmdWriteCalibUpper", text);
}

double Shown(PageDriver& driver, const char* field) { return std::stod(driver.Text(field)); }

TEST(CalibrationCourse, LowerAndUpperTrimRemoveTheSensorsErrors) {
  ScreenDriver driver(Erring());
  driver.Activate("Calibration");
  driver.Click("cmdCalibLower");
  Apply(driver, 10);
  // 1.005 x 20 kPa + 0.12 kPa on one side, 10 kPa on the other.
  EXPECT_NEAR(Shown(driver, "txtParameter(93)"), 10.220, 0.001);
  EXPECT_EQ(driver.Text("txtParameter(307)"), "Good (NC)");
  EXPECT_EQ(driver.Row("txtParameter(93)")["unit"], "kPa");
  Apply(driver, 0.5);
  TrimLower(driver, "0.5");
  EXPECT_EQ(Verdict(driver), "Good");
  EXPECT_EQ(driver.State("txtParameter(103)"), "confirmed");
  Apply(driver, 25);
  TrimUpper(driver, "25");
  EXPECT_EQ(Verdict(driver), "Good");
  EXPECT_EQ(driver.Footer(), "all confirmed");
  for (const double applied : {0.5, 10.0, 20.0}) {
    Apply(driver, applied);
    EXPECT_NEAR(Shown(driver, "txtParameter(93)"), applied, 0.001);
  }
}

TEST(CalibrationCourse, TheUnitChangesPointsAndLimitsAlike) {
  PageDriver driver{Driver::Simulated()};
  driver.Activate("Calibration");
  driver.Advance(500);
  EXPECT_EQ(driver.Text("cmbCalibUnit"), "kPa");
  driver.Choose("cmbCalibUnit", "mbar");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbCalibUnit"), "mbar");
  driver.Click("cmdCalibLower");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(97)"), "374.000");
  EXPECT_EQ(driver.Text("txtParameter(95)"), "374.000");
  EXPECT_EQ(driver.Text("txtParameter(102)"), "3.740");
  EXPECT_EQ(driver.Text("txtParameter(93)"), "100.000");
  EXPECT_EQ(driver.Text("lbArray(118)"), "mbar");
  TrimLower(driver, "99.5");
  EXPECT_EQ(Verdict(driver), "Good");
  EXPECT_EQ(driver.Text("txtParameter(93)"), "99.500");
}

struct Refusal {
  const char* name;
  double applied;
  bool upper;
  const char* point;
  const char* verdict;
  Json device = nullptr;
  Json fault = nullptr;
};

TEST(CalibrationCourse, WhatTheTransmitterRefusesChangesNothing) {
  const Refusal refusals[] = {
      {"process beyond the limit", 50, false, "1", "Applied process out of range"},
      {"point beyond the limit", 10, false, "40", "Applied process out of range"},
      {"upper point near the lower", 0.2, true, "0.2", "Invalid configuration for request"},
      {"lower point near the upper", 37.2, false, "37.2", "Invalid configuration for request"},
      {"offset too large", 0, false, "6", "Excess correction"},
      {"gain too large", 20, true, "23", "Excess correction"},
      {"locked", 10, false, "10.1", "Invalid configuration for request", {{"writeLocked", true}}},
      {"simulating", 10, false, "10.1", "Invalid configuration for request", {{"parameters", {{"simEnable", "FF"}}}}},
      {"no sensor", 10, false, "10.1", "Calibration failed", nullptr, {{"kind", "boardFailure"}}},
  };
  for (const Refusal& refusal : refusals) {
    SCOPED_TRACE(refusal.name);
    ScreenDriver driver{Driver::Simulated()};
    driver.Activate("Calibration");
    driver.Click("cmdCalibLower");
    Apply(driver, refusal.applied);
    if (!refusal.device.is_null()) SetDevice(driver, refusal.device);
    if (!refusal.fault.is_null()) driver.Ok({{"do", "simulator"}, {"fault", refusal.fault}});
    driver.Advance(kSettled);
    const std::string measured = driver.Text("txtParameter(93)");
    const char* field = refusal.upper ? "txtParameter(95)" : "txtParameter(103)";
    const std::string before = driver.Text(field);
    refusal.upper ? TrimUpper(driver, refusal.point) : TrimLower(driver, refusal.point);
    EXPECT_EQ(Verdict(driver), refusal.verdict);
    EXPECT_EQ(driver.Row("txtParameter(43)")["mark"], "bad");
    EXPECT_EQ(driver.Text(field), before);
    EXPECT_EQ(driver.State(field), "differs");
    EXPECT_EQ(driver.Words(field), "device: " + before + ", sent: " + refusal.point);
    EXPECT_EQ(driver.Text("txtParameter(93)"), measured);
  }
}

TEST(CalibrationCourse, APressureThatStillMovesFails) {
  PageDriver driver{Driver::Simulated()};
  driver.Activate("Calibration");
  driver.Click("cmdCalibLower");
  Apply(driver, 0);
  SetProcess(driver, {{"pressureHi", 12'000}});
  driver.Advance(1000);
  TrimLower(driver, "2");
  EXPECT_EQ(Verdict(driver), "Calibration failed");
  TrimLower(driver, "2");
  EXPECT_EQ(Verdict(driver), "Good");
}

TEST(CalibrationCourse, LockedInTheMiddleTheLowerPointStands) {
  ScreenDriver driver(Erring());
  driver.Activate("Calibration");
  driver.Click("cmdCalibLower");
  Apply(driver, 1);
  TrimLower(driver, "1");
  ASSERT_EQ(Verdict(driver), "Good");
  SetDevice(driver, {{"writeLocked", true}});
  Apply(driver, 25);
  TrimUpper(driver, "25");
  EXPECT_EQ(Verdict(driver), "Invalid configuration for request");
  EXPECT_EQ(driver.Text("txtParameter(103)"), "1.000");
  EXPECT_EQ(driver.Text("txtParameter(95)"), "37.400");
  // One point alone has set the offset: the gain's error is left, 0.005 x 24 kPa.
  EXPECT_NEAR(Shown(driver, "txtParameter(93)"), 25.12, 0.001);
  SetDevice(driver, {{"writeLocked", false}});
  TrimUpper(driver, "25");
  EXPECT_EQ(Verdict(driver), "Good");
  EXPECT_NEAR(Shown(driver, "txtParameter(93)"), 25, 0.001);
}

TEST(CalibrationCourse, BackBeforeTheWriteLeavesTheDeviceAlone) {
  ScreenDriver driver(Erring());
  driver.Activate("Calibration");
  driver.Click("cmdCalibLower");
  Apply(driver, 1);
  driver.Type("txtParameter(103)", "1.5");
  EXPECT_EQ(driver.State("txtParameter(103)"), "not written");
  driver.Requests();
  driver.Click("cmdBack");
  EXPECT_EQ(driver.Message(), "Left without writing: 1 field on Lower/Upper Calibration.");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Traffic(), Strings{});
  driver.Click("cmdCalibLower");
  driver.Advance(500);
  EXPECT_EQ(driver.Text("txtParameter(103)"), "0.000");
  EXPECT_EQ(driver.State("txtParameter(103)"), "replaced");
}

TEST(CalibrationCourse, BackAfterTheWriteTheVerdictIsThereWhenThePageOpensAgain) {
  ScreenDriver driver(Erring());
  driver.Activate("Calibration");
  driver.Click("cmdCalibLower");
  Apply(driver, 1);
  driver.Type("txtParameter(103)", "1");
  driver.Requests();
  driver.Click("cmdWriteCalibLower");
  driver.Click("cmdBack");
  driver.Advance(kSettled);
  // The page's own re-read is the one of the page left.
  EXPECT_EQ(driver.Traffic(), (Strings{"write 14: 3F800000", "read 15"}));
  driver.Click("cmdCalibLower");
  driver.Advance(500);
  EXPECT_EQ(Verdict(driver), "Good");
  EXPECT_EQ(driver.Text("txtParameter(103)"), "1.000");
  EXPECT_EQ(driver.Text("txtParameter(93)"), "1.000");
}

TEST(CalibrationCourse, APointTypedAsItStandsIsNoChange) {
  ScreenDriver driver(Erring());
  driver.Activate("Calibration");
  driver.Click("cmdCalibLower");
  Apply(driver, 0);
  TrimLower(driver, "0");
  EXPECT_EQ(Verdict(driver), "Good");
  EXPECT_EQ(driver.Text("txtParameter(103)"), "0.000");
  EXPECT_EQ(driver.State("txtParameter(103)"), "as read");
}

TEST(CalibrationCourse, TheTemperatureIsTrimmedInItsUnit) {
  ScreenDriver driver(Driver::Simulated({{"device", {{"temperatureError", 2.5}}}, {"process", {{"temperature", 22}}}}));
  driver.Activate("Calibration");
  driver.Tab("SSTabCalib", 1);
  driver.Advance(500);
  driver.Choose("cmbCalibTempUnit", "°F");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbDensityTemp"), "°F");
  driver.Click("cmdTempCalib");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(98)"), "76.100");  // 24.5 °C
  EXPECT_EQ(driver.Row("txtParameter(98)")["unit"], "°F");
  driver.Type("txtParameter(113)", "71.6");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.State("txtParameter(113)"), "confirmed");
  EXPECT_EQ(driver.Text("txtParameter(98)"), "71.600");
  EXPECT_EQ(driver.Text("txtParameter(309)"), "Good (NC)");
}

TEST(CalibrationCourse, ARefusedTemperatureComesBackAsItWas) {
  const struct {
    const char* point;
    const char* verdict;
  } cases[] = {{"400", "Applied process out of range"}, {"31", "Excess correction"}};
  for (const auto& c : cases) {
    ScreenDriver driver(Driver::Simulated({{"process", {{"temperature", 20}}}}));
    driver.Activate("Calibration");
    driver.Click("cmdTempCalib");
    driver.Advance(kSettled);
    const std::string before = driver.Text("txtParameter(113)");
    driver.Type("txtParameter(113)", c.point);
    driver.Click("cmdWriteParameter");
    driver.Advance(kSettled);
    EXPECT_EQ(driver.Words("txtParameter(113)"), "device: " + before + ", sent: " + c.point);
    EXPECT_EQ(driver.Text("txtParameter(98)"), "20.000");
    driver.Click("cmdBack");
    driver.Click("cmdCalibLower");
    driver.Advance(500);
    EXPECT_EQ(Verdict(driver), c.verdict) << "this page alone has the verdict";
  }
}

TEST(CalibrationCourse, TheLinkFailsAndTheLiveValueSaysSo) {
  ScreenDriver driver{Driver::Simulated()};
  driver.Activate("Calibration");
  driver.Click("cmdCalibLower");
  driver.Advance(kSettled);
  driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "noAnswer"}}}});
  driver.Advance(25'000);
  EXPECT_EQ(driver.DataLine().substr(0, 16), "No answer since ");
  EXPECT_EQ(driver.Words("txtParameter(93)"), "stale");
  EXPECT_EQ(driver.Words("txtParameter(43)"), "stale");
}

}  // namespace
}  // namespace htr60::automation

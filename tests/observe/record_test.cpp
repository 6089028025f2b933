// What is calibrated, kept by itself: with numbers of this test's own.
#include "observe/record.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "automate/driver.h"

namespace htr60::automation {
namespace {

namespace fs = std::filesystem;

constexpr double kGain = 0.02;
constexpr double kOffset = 300;  // Pa
constexpr double kSpan = 37.4;   // kPa: from 0 to the upper end of range 2

/// The first sensor has an error; the pressure is set by hand.
Json Settings(const std::string& separator = ".") {
  return {{"decimalSeparator", separator},
          {"device", {{"gainErrorHi", kGain}, {"offsetErrorHi", kOffset}}},
          {"process", {{"pressureHi", 10'000}, {"pressureLo", 10'000}}}};
}
/// What the sensor makes of a pressure.
double Sensed(double pascal) { return (1 + kGain) * pascal + kOffset; }

class RecordDriver : public Driver {
 public:
  explicit RecordDriver(const Json& settings = Settings()) : Driver(Simulated(settings)) {
    Init();
    Advance(3000);
  }
  Json Record(Json command = Json::object()) {
    command["do"] = "record";
    return Ok(command);
  }
  void Pressure(double pascal) {
    Ok({{"do", "simulator"}, {"set", {{"process", {{"pressureHi", pascal}}}}}});
    Advance(10'000);  // the value settles, and the page reads it
  }
  void OpenTrim() {
    Activate("Calibration");
    Advance(100);
    Click("cmdCalibLower");
    Advance(10'000);
  }
  void Trim(const char* field, const char* button, const char* point) {
    Type(field, point);
    Click(button);
    Advance(5'000);
  }
  void Lower(const char* point) { Trim("txtParameter(103)", "cmdWriteCalibLower", point); }
  void Upper(const char* point) { Trim("txtParameter(95)", "cmdWriteCalibUpper", point); }
};

TEST(RecordTest, ALowerAndAnUpperTrimWithTheErrorFoundAndLeft) {
  RecordDriver driver;
  driver.OpenTrim();
  driver.Lower("0");
  driver.Pressure(35'000);
  driver.Upper("25");
  const Json steps = driver.Record()["steps"];
  ASSERT_EQ(steps.size(), 2U);
  // Before the lower trim the device shows the difference as sensed; the trim takes the offset there away.
  const double offset = (Sensed(10'000) - 10'000) / 1000;
  const double upper = (Sensed(35'000) - 10'000) / 1000 - offset;
  const struct {
    const char* step;
    double applied;
    double found;
  } kExpected[] = {{"Lower trim", 0, offset}, {"Upper trim", 25, upper}};
  for (std::size_t i = 0; i < 2; ++i) {
    const Json& step = steps.at(i);
    SCOPED_TRACE(step.dump());
    EXPECT_EQ(step.at("step"), kExpected[i].step);
    EXPECT_EQ(step.at("page"), "Lower/Upper Calibration");
    EXPECT_EQ(step.at("unit"), "kPa");
    EXPECT_EQ(step.at("verdict"), "Good");
    EXPECT_EQ(step.at("awaited"), false);
    EXPECT_NEAR(step.at("applied").get<double>(), kExpected[i].applied, 1e-5);
    EXPECT_NEAR(step.at("found").at("value").get<double>(), kExpected[i].found, 1e-4);
    EXPECT_NEAR(step.at("found").at("error").get<double>(), (kExpected[i].found - kExpected[i].applied) / kSpan * 100,
                1e-3);
    EXPECT_NEAR(step.at("left").at("value").get<double>(), kExpected[i].applied, 1e-4);
    EXPECT_NEAR(step.at("left").at("error").get<double>(), 0, 1e-3);
  }
}

TEST(RecordTest, ARefusedStepStandsInTheTableAndNotAmongTheErrors) {
  RecordDriver driver;
  driver.OpenTrim();
  driver.Lower("0");
  driver.Upper("0.1");  // too close to the lower point
  const Json record = driver.Record();
  ASSERT_EQ(record["steps"].size(), 2U);
  EXPECT_EQ(record["steps"][1]["verdict"], "Invalid configuration for request");
  EXPECT_NEAR(record["steps"][1]["left"]["value"].get<double>(), 0, 1e-4) << "as it was";
  const double found = (Sensed(10'000) - 10'000) / 1000 / kSpan * 100;
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%+.3f", found);
  ASSERT_EQ(record["worst"].size(), 3U);
  EXPECT_EQ(record["worst"][0], "Worst as found: " + std::string(text.data()) + " % of span, Lower trim");
  EXPECT_EQ(record["worst"][2], "1 step was refused and stands in the table alone");
}

TEST(RecordTest, AWriteThatFailsWasNotSent) {
  RecordDriver driver;
  driver.OpenTrim();
  driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "writeFails"}, {"count", 1}}}});
  driver.Lower("0");
  const Json step = driver.Record()["steps"].at(0);
  EXPECT_EQ(step.at("verdict"), "Not sent: the write fails");
  EXPECT_EQ(step.at("left"), nullptr);
  EXPECT_EQ(step.at("awaited"), false);
}

TEST(RecordTest, WhatIsNotAnsweredIsAwaitedAndThenLeftOpen) {
  RecordDriver driver;
  driver.OpenTrim();
  driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "noAnswer"}, {"codes", {16, 35}}}}});
  driver.Lower("0");
  EXPECT_EQ(driver.Record()["steps"].at(0).at("awaited"), true);
  driver.Activate("Device Identification");
  driver.Advance(40'000);
  driver.Activate("Device Identification");
  driver.Advance(200);
  const Json step = driver.Record()["steps"].at(0);
  EXPECT_EQ(step.at("awaited"), false);
  EXPECT_EQ(step.at("left"), nullptr);
  EXPECT_EQ(step.at("verdict"), "");
}

TEST(RecordTest, KeepsTheOtherCalibrationsToo) {
  RecordDriver driver;
  driver.Activate("Calibration");
  driver.Advance(100);
  driver.Tab("SSTabCalib", 1);
  driver.Advance(100);
  driver.Click("cmdTempCalib");
  driver.Advance(6'000);
  driver.Type("txtParameter(113)", "21");
  driver.Click("cmdWriteParameter");
  driver.Advance(8'000);
  driver.Activate("Calibration");
  driver.Advance(100);
  driver.Tab("SSTabCalib", 2);
  driver.Click("Command3");
  driver.Advance(200);
  driver.Tab("SSTabCalibWithRef(0)", 1);
  driver.Advance(4'000);
  driver.Type("txtParameter(277)", "10");
  driver.Click("cmdWriteParameter");
  driver.Advance(6'000);
  const Json steps = driver.Record()["steps"];
  ASSERT_EQ(steps.size(), 2U);
  EXPECT_EQ(steps[0]["step"], "Temperature trim");
  EXPECT_EQ(steps[0]["unit"], "°C");
  // From -40 to 100 °C: one degree of 140.
  EXPECT_NEAR(steps[0]["found"]["error"].get<double>(), -1.0 / 140 * 100, 1e-3);
  EXPECT_NEAR(steps[0]["left"]["value"].get<double>(), 21, 1e-4);
  EXPECT_EQ(steps[1]["step"], "Sensor 1, upper point");
  EXPECT_NEAR(steps[1]["found"]["value"].get<double>(), Sensed(10'000) / 1000, 1e-3);
  EXPECT_FALSE(steps[1]["verdict"].get<std::string>().empty());
}

TEST(RecordTest, KeepsACharacterizationPointByPoint) {
  RecordDriver driver;
  driver.Activate("Factory");
  driver.Advance(200);
  driver.Tab("SSTabFactory", 5);
  driver.Type("txtPassword", "QK475");
  driver.Click("cmdFactory");
  driver.Click("cmdSensorChar");
  driver.Advance(200);
  driver.Ok({{"do", "boxes"}, {"answers", {"Yes", "Yes"}}});
  driver.Choose("cmbCharOperation", "Disable and Allow to Enter Points");
  driver.Click("cmdWriteParameter");
  driver.Advance(500);
  driver.Type("txtParameter(38)", "0");
  driver.Click("cmdSend");
  driver.Advance(500);
  driver.Pressure(35'000);
  driver.Type("txtParameter(38)", "25");
  driver.Click("cmdSend");
  driver.Advance(3'000);
  const Json steps = driver.Record()["steps"];
  ASSERT_EQ(steps.size(), 2U);
  const double found[] = {(Sensed(10'000) - 10'000) / 1000, (Sensed(35'000) - 10'000) / 1000};
  for (std::size_t i = 0; i < 2; ++i) {
    const Json& step = steps.at(i);
    EXPECT_EQ(step.at("step").get<std::string>().substr(0, 25), "Characterization, point " + std::to_string(i + 1));
    EXPECT_EQ(step.at("verdict"), "") << "the device tells none";
    EXPECT_NEAR(step.at("found").at("value").get<double>(), found[i], 1e-3);
    EXPECT_NEAR(step.at("found").at("error").get<double>(), (found[i] - (i == 0 ? 0 : 25)) / 25 * 100, 1e-2);
    EXPECT_EQ(step.at("left"), nullptr);
  }
  EXPECT_EQ(driver.Record().dump().find("QK475"), std::string::npos);
}

TEST(RecordTest, KeepsADensityCalibration) {
  RecordDriver driver(Json{{"device", {{"primaryValueType", "Density"}, {"gainErrorHi", kGain}}},
                           {"process", {{"vessel", {{"density", 850}, {"level", 1}}}}}});
  driver.Activate("Calibration");
  driver.Advance(200);
  driver.Tab("SSTabDensityCalib", 1);
  driver.Advance(7'000);
  driver.Type("txtParameter(248)", "0.85");
  driver.Click("cmdWriteParameter");
  driver.Advance(10'000);
  const Json steps = driver.Record()["steps"];
  ASSERT_EQ(steps.size(), 1U);
  const Json& step = steps.at(0);
  EXPECT_EQ(step.at("step"), "Lower density point");
  EXPECT_EQ(step.at("verdict"), "Good");
  // The first diaphragm lies under one metre, the second under half a metre; the first reads 2 % more.
  const double found = ((1 + kGain) * 1 - 0.5) / 0.5 * 0.85;
  EXPECT_NEAR(step.at("found").at("value").get<double>(), found, 1e-3);
  EXPECT_NEAR(step.at("found").at("error").get<double>(), (found - 0.85) / (1.8 - 0.5) * 100, 0.1);
  EXPECT_NEAR(step.at("left").at("value").get<double>(), 0.85, 1e-3);
}

/// A device that calibrates its density by itself; its first sensor has an error. The diaphragms are half a metre
/// apart, the first one metre below the surface.
class SelfCalibration : public RecordDriver {
 public:
  explicit SelfCalibration(bool armed = true)
      : RecordDriver(Json{{"device",
                           {{"primaryValueType", "Density"},
                            {"gainErrorHi", kGain},
                            {"offsetErrorHi", kAirOffset},
                            {"selfCalibration", armed}}}}) {}
  void Around(double density, double level) {
    Ok({{"do", "simulator"}, {"set", {{"process", {{"vessel", {{"density", density}, {"level", level}}}}}}}});
    Advance(10'000);
  }
  void OpenPoint(int tab) {
    Tab("SSTabDensityCalib", tab);
    Advance(7'000);
  }
  void Choose(const char* type) {
    Activate("Calibration");
    Advance(1'000);
    Driver::Choose("cmbCalibMeasuredType", type);
    Click("cmdWriteParameter");
    Advance(3'000);
  }
  Json Step(std::size_t step) { return Record()["steps"].at(step); }

  static constexpr double kAirOffset = 20;                            // Pa
  static constexpr double kHeight = 0.5;                              // m
  static constexpr double kAir = 101'325 / (287.05 * (20 + 273.15));  // kg/m³, dry, at 20 °C
  /// kg/m³ that the device makes of a fluid before it is calibrated.
  static double Measured(double density) {
    return ((1 + kGain) * density - kHeight * density) / kHeight + kAirOffset / (9.80665 * kHeight);
  }
};

TEST(RecordTest, KeepsASelfCalibrationWithThePointThatTheDeviceTook) {
  SelfCalibration driver;
  driver.Around(1000, 0);
  driver.Activate("Calibration");
  driver.Advance(200);
  driver.OpenPoint(1);
  driver.Choose("Density (kg/m³)");
  EXPECT_EQ(driver.Step(0).at("step"), "Measured type: Density (kg/m³)") << "nothing has told yet that it calibrates";
  EXPECT_EQ(driver.Step(0).at("awaited"), true);
  driver.OpenPoint(1);
  Json step = driver.Step(0);
  EXPECT_EQ(step.at("step"), "Self calibration in air: Density (kg/m³)");
  EXPECT_EQ(step.at("page"), "Density Calibration, Measured Type");
  EXPECT_EQ(step.at("verdict"), "Good");
  EXPECT_EQ(step.at("awaited"), false);
  EXPECT_EQ(step.at("unit"), "kg/m³");
  EXPECT_NEAR(step.at("applied").get<double>(), SelfCalibration::kAir, 1e-4);
  // It was found in the unit before, and what stands in another unit has no error.
  EXPECT_EQ(step.at("found").at("unit"), "g/cm³");
  EXPECT_NEAR(step.at("found").at("value").get<double>(), SelfCalibration::Measured(0) / 1000, 1e-6);
  EXPECT_EQ(step.at("found").at("error"), nullptr);
  EXPECT_NEAR(step.at("left").at("error").get<double>(), 0, 1e-4);

  // Once more in a gas, and in the same unit: now there is an error. Calibrated it shows less by what it was off.
  driver.Around(30, 1);
  driver.Choose("Density (kg/m³)");
  driver.OpenPoint(1);
  step = driver.Step(1);
  const double found = SelfCalibration::Measured(30) - SelfCalibration::Measured(0) + SelfCalibration::kAir;
  EXPECT_NEAR(step.at("found").at("value").get<double>(), found, 1e-3);
  EXPECT_NEAR(step.at("found").at("error").get<double>(),
              (found - SelfCalibration::kAir) / (1800 - SelfCalibration::kAir) * 100, 1e-4);

  driver.Around(998.2041, 1);
  driver.Choose("Brix");
  driver.OpenPoint(2);
  step = driver.Step(2);
  EXPECT_EQ(step.at("step"), "Self calibration in water: Brix");
  EXPECT_EQ(step.at("verdict"), "Good");
  EXPECT_NEAR(step.at("applied").get<double>(), 0, 0.01) << "water has no sugar";
  EXPECT_NEAR(step.at("left").at("value").get<double>(), step.at("applied").get<double>(), 1e-4);
  EXPECT_EQ(step.at("found").at("unit"), "kg/m³");
  EXPECT_EQ(step.at("span"), nullptr);
  EXPECT_EQ(step.at("left").at("error"), nullptr);
}

TEST(RecordTest, ASelfCalibrationThatIsRefusedHasNoPoint) {
  SelfCalibration driver;
  driver.Around(998.2041, 1);
  driver.Activate("Calibration");
  driver.Advance(200);
  driver.OpenPoint(2);
  driver.Choose("Brix");  // without the air before it
  driver.OpenPoint(2);
  const Json step = driver.Step(0);
  EXPECT_EQ(step.at("step"), "Self calibration in water: Brix");
  EXPECT_EQ(step.at("verdict"), "Invalid configuration for request");
  EXPECT_EQ(step.at("applied"), nullptr);
  EXPECT_EQ(step.at("awaited"), false);
  EXPECT_EQ(driver.Record()["worst"], Json::array({"1 step was refused and stands in the table alone"}));
  // A second refusal of the same words cannot be told from the first.
  driver.Choose("Brix");
  driver.OpenPoint(2);
  EXPECT_EQ(driver.Step(1).at("step"), "Measured type: Brix");
  EXPECT_EQ(driver.Step(1).at("verdict"), "");
}

TEST(RecordTest, AMeasuredTypeThatCalibratesNothingIsNoCalibration) {
  SelfCalibration driver(false);
  driver.Around(850, 1);
  driver.Activate("Calibration");
  driver.Advance(200);
  driver.OpenPoint(1);
  driver.Choose("Density (kg/m³)");
  driver.OpenPoint(1);
  const Json step = driver.Step(0);
  EXPECT_EQ(step.at("step"), "Measured type: Density (kg/m³)");
  EXPECT_EQ(step.at("verdict"), "") << "the one that stands there is that of another calibration";
  EXPECT_EQ(step.at("applied"), nullptr);
  EXPECT_EQ(step.at("awaited"), false);
  EXPECT_NEAR(step.at("left").at("value").get<double>(), SelfCalibration::Measured(850), 1e-2);
  driver.Choose("Plato");
  EXPECT_EQ(driver.Record()["steps"].size(), 1U) << "with the other types no device calibrates";
}

TEST(RecordTest, AVerdictIsThatOfTheLastCalibrationAlone) {
  RecordDriver driver;
  driver.OpenTrim();
  driver.Type("txtParameter(103)", "0");
  driver.Click("cmdWriteCalibLower");
  driver.Advance(100);
  driver.Upper("0.1");  // too close to the lower point
  const Json steps = driver.Record()["steps"];
  ASSERT_EQ(steps.size(), 2U);
  EXPECT_EQ(steps[0]["verdict"], "") << "nobody has read it before the next write";
  EXPECT_EQ(steps[0]["left"], nullptr);
  EXPECT_EQ(steps[1]["verdict"], "Invalid configuration for request");
}

TEST(RecordTest, WithoutAReferenceNoErrorIsFound) {
  Driver driver(Driver::Simulated());
  driver.Init();
  driver.Advance(3000);
  driver.Activate("Factory");
  driver.Advance(200);
  driver.Tab("SSTabFactory", 5);
  driver.Type("txtPassword", "QK475");
  driver.Click("cmdFactory");
  driver.Click("cmdSensorFactory");
  driver.Advance(500);
  driver.Ok({{"do", "click"}, {"control", "cmdCalWithoutRef"}, {"force", true}});
  driver.Advance(500);
  driver.Type("txtParameter(196)", "37");
  driver.Click("cmdWriteCalPoint");
  driver.Advance(5'000);
  const Json steps = driver.Ok({{"do", "record"}})["steps"];
  ASSERT_EQ(steps.size(), 2U);
  EXPECT_EQ(steps[0]["step"], "Upper point without reference");
  EXPECT_NEAR(steps[0]["found"]["value"].get<double>(), 37.4, 1e-5);
  EXPECT_NEAR(steps[0]["left"]["value"].get<double>(), 37, 1e-5);
  EXPECT_EQ(steps[0]["found"]["error"], nullptr);
  EXPECT_EQ(steps[1]["step"], "Lower point without reference");
}

TEST(RecordTest, RemarksOperatorAndTolerance) {
  RecordDriver driver;
  driver.OpenTrim();
  driver.Lower("0");
  const Json record = driver.Record({{"operator", "A. Weber"},
                                     {"tolerance", 0.5},
                                     {"remarks", Json::array({{{"step", 0}, {"text", "reference 12"}}})}});
  EXPECT_EQ(record["operator"], "A. Weber");
  EXPECT_EQ(record["steps"][0]["remark"], "reference 12");
  const std::string worst = record["worst"][0];
  EXPECT_NE(worst.find("outside the tolerance"), std::string::npos) << worst;
  EXPECT_NE(record["worst"][1].get<std::string>().find("within the tolerance"), std::string::npos);
  driver.Refused({{"do", "record"}, {"remarks", Json::array({{{"step", 1}, {"text", "none"}}})}});
  driver.Refused({{"do", "record"}, {"tolerance", 0}});
  driver.Refused({{"do", "record"}, {"operator", "B"}, {"save", "/no such folder/a.csv"}});
  driver.Refused({{"do", "record"}, {"operator", "B"}, {"save", "/tmp/a.docx"}});
  EXPECT_EQ(driver.Record()["operator"], "A. Weber") << "what is refused has changed nothing";
  EXPECT_EQ(driver.Record({{"clear", true}})["steps"].size(), 0U);
}

TEST(RecordTest, WhoTakesOverHasNotDoneWhatIsDone) {
  RecordDriver driver;
  driver.OpenTrim();
  driver.Lower("0");
  EXPECT_EQ(driver.Record({{"operator", "A. Weber"}})["steps"][0]["operator"], "A. Weber") << "named afterwards";
  driver.Refused({{"do", "record"}, {"operator", "B. Klein"}, {"save", "/no such folder/a.csv"}});
  EXPECT_EQ(driver.Record()["steps"][0]["operator"], "A. Weber");
  driver.Record({{"operator", "B. Klein"}});
  driver.Pressure(35'000);
  driver.Upper("25");
  const Json steps = driver.Record()["steps"];
  EXPECT_EQ(steps[0]["operator"], "A. Weber");
  EXPECT_EQ(steps[1]["operator"], "B. Klein");
}

class RecordFile : public testing::Test {
 protected:
  RecordFile() : folder_(fs::path(testing::TempDir()) / ("htr60-record-" + std::to_string(::getpid()))) {
    fs::create_directories(folder_);
  }
  ~RecordFile() override { fs::remove_all(folder_); }
  std::string Saved(Driver& driver, const char* name) {
    driver.Ok({{"do", "record"}, {"save", (folder_ / name).string()}});
    std::ifstream in(folder_ / name, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
  }
  fs::path folder_;
};

TEST_F(RecordFile, TheTableReadsBack) {
  for (const char* separator : {".", ","}) {
    RecordDriver driver(Settings(separator));
    driver.OpenTrim();
    driver.Lower("0");
    driver.Record({{"operator", "A. Weber"}, {"remarks", Json::array({{{"step", 0}, {"text", "a \"b\"; c, d"}}})}});
    const std::string csv = Saved(driver, "record.csv");
    const std::string between = *separator == ',' ? ";" : ",";
    EXPECT_EQ(csv.substr(0, csv.find("\r\n")), "SIMULATED");
    EXPECT_NE(csv.find("Tag" + between + "HTR60-1\r\n"), std::string::npos) << csv;
    EXPECT_NE(csv.find("Firmware" + between + "1.09\r\n"), std::string::npos) << csv;
    const std::string found = std::string("0") + *separator + "5";
    const std::string row =
        "Lower trim" + between + "0" + between + found + between + "+1" + *separator + "337" + between;
    EXPECT_NE(csv.find(row), std::string::npos) << csv;
    EXPECT_NE(csv.find("\"a \"\"b\"\"; c, d\"" + between + "Lower/Upper Calibration" + between + "A. Weber\r\n"),
              std::string::npos)
        << csv;
  }
}

TEST_F(RecordFile, TheWebPageHoldsTheSameAndEscapesIt) {
  RecordDriver driver;
  driver.OpenTrim();
  driver.Lower("0");
  driver.Record({{"operator", "<b>A & B</b>"}, {"tolerance", 2}});
  const std::string html = Saved(driver, "record.html");
  for (const char* part :
       {"Calibration record", "SIMULATED", "HTR60-1", "06000001", "1.09", "Lower trim", "+1.337",
        "&lt;b&gt;A &amp; B&lt;/b&gt;", "±2 % of span", "Performed by", "Checked by", "<svg", "</html>"}) {
    EXPECT_NE(html.find(part), std::string::npos) << part;
  }
  EXPECT_EQ(html.find("<b>A"), std::string::npos);
  EXPECT_EQ(html.find("<th>Operator"), std::string::npos) << "one name stands in the title block alone";
  EXPECT_EQ(html.find("http://", html.find("<svg") + 40), std::string::npos) << "nothing is fetched";
}

TEST_F(RecordFile, SeveralOperatorsHaveAColumn) {
  RecordDriver driver;
  driver.OpenTrim();
  driver.Record({{"operator", "A. Weber"}});
  driver.Lower("0");
  driver.Record({{"operator", "B. Klein"}});
  driver.Lower("0");
  const std::string html = Saved(driver, "record.html");
  for (const char* part :
       {"<td>A. Weber, B. Klein</td>", "<th>Operator</th>", "<td>A. Weber</td>", "<td>B. Klein</td>"}) {
    EXPECT_NE(html.find(part), std::string::npos) << part;
  }
}

}  // namespace
}  // namespace htr60::automation

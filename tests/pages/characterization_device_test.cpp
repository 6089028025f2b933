// The characterization at the simulated transmitter, whose sensors err.
#include "characterization_driver.h"

namespace htr60::automation {
namespace {

/// A transmitter whose differential pressure reads 2 % and 0.3 kPa too much, and an operator who knows the true one.
class CharBench : public CharDriver {
 public:
  explicit CharBench(double gainError = 0.02)
      : CharDriver(Simulated({{"device", {{"gainErrorHi", gainError}, {"offsetErrorHi", 300}}},
                              {"process", {{"pressureHi", 0}, {"pressureLo", 0}}}})) {}

  void Apply(double kilopascal) {
    Ok({{"do", "simulator"}, {"set", {{"process", {{"pressureHi", 1000 * kilopascal}}}}}});
    Advance(5000);
  }
  void Begin(const char* points) {
    Click("cmdSensorChar");
    Advance(200);
    Choose("cmbCharOperation", kEnterPoints);
    Boxes({"Yes"});
    Write();
    Advance(200);
    Choose("cmbCharNumPoints", points);
  }
  void Point(double kilopascal) {
    Apply(kilopascal);
    EXPECT_NEAR(std::stod(Text("txtParameter(39)")), 1.02 * kilopascal + 0.3, 0.001);
    Type("txtParameter(38)", std::to_string(static_cast<int>(kilopascal)));
    Click("cmdSend");
  }
  void Enter(const std::vector<double>& points) {
    Begin(std::to_string(points.size()).c_str());
    for (const double point : points) Point(point);
    Advance(2000);
  }
  /// What the page of the curve shows while a pressure is applied.
  double Reads(double kilopascal) {
    Apply(kilopascal);
    return std::stod(Text("txtParameter(109)"));
  }
  Json Device(const char* parameter) {
    return Ok({{"do", "simulator"}, {"get", Json::array({parameter})}})["values"][parameter];
  }
};

TEST(CharacterizationDevice, ReadsTheAppliedPressureAtEachPoint) {
  const std::vector<double> curves[] = {{0, 30}, {-20, -5, 8, 17, 32}, {30, 20, 10}};
  for (const std::vector<double>& points : curves) {
    SCOPED_TRACE(points.size());
    CharBench bench;
    bench.Begin(std::to_string(points.size()).c_str());
    bench.Boxes({"Yes"});
    for (const double point : points) bench.Point(point);
    bench.Advance(2000);
    EXPECT_EQ(bench.Device("operResult"), "10");
    EXPECT_EQ(bench.Text("cmbCharOperation"), "Enable Curve and Backup Cal");
    bench.Click("cmdResultChar");
    for (const double point : points) EXPECT_NEAR(bench.Reads(point), point, 0.002);
    EXPECT_EQ(bench.Text("txtParameter(110)"), "0" + std::to_string(points.size()));
    EXPECT_EQ(bench.Text("lbArray(148)"), "kPa");
    EXPECT_EQ(bench.Text("cmbStatusChar"), "Good (NC)");
    EXPECT_NEAR(std::stod(bench.Text("txtParameter(114)")), 1.02 * points[0] + 0.3, 0.001);
    EXPECT_NEAR(std::stod(bench.Text("txtParameter(105)")), points[1], 0.001);
    EXPECT_EQ(bench.Remarks(), Strings{});
    EXPECT_TRUE(bench.Sentence().starts_with("Characterization curve of " + std::to_string(points.size()) + " points"));

    // The copy of the calibration brings back what the device read before.
    bench.Click("cmdBack");
    bench.Choose("cmbCharOperation", "Disable and Restore Cal");
    bench.Write();
    bench.Advance(3000);
    EXPECT_EQ(bench.State("cmbCharOperation"), "confirmed");
    bench.Click("cmdResultChar");
    EXPECT_NEAR(bench.Reads(30), 30.9, 0.002);
  }
}

TEST(CharacterizationDevice, ClosesAsItIsAnswered) {
  const std::pair<Json, const char*> closings[] = {{{"No", "Yes"}, "Disable and Restore Cal"},
                                                   {{"No", "No"}, "Disabled"}};
  for (const auto& [answers, operation] : closings) {
    CharBench bench;
    bench.Begin("2");
    bench.Boxes(answers);
    bench.Point(0);
    bench.Point(30);
    bench.Advance(2000);
    EXPECT_EQ(bench.Text("cmbCharOperation"), operation);
    EXPECT_EQ(bench.Device("operResult"), "10");
    bench.Click("cmdResultChar");
    EXPECT_NEAR(bench.Reads(30), 30.9, 0.002);  // stored, and off
    bench.Click("cmdBack");
    bench.Choose("cmbCharOperation", "Enable Curve");
    bench.Write();
    bench.Advance(3000);
    bench.Click("cmdResultChar");
    EXPECT_NEAR(bench.Reads(30), 30, 0.002);
  }
}

TEST(CharacterizationDevice, RefusesACurveOutOfOrderAndKeepsItsOwn) {
  struct Case {
    std::vector<double> points;
    double gainError;
    const char* verdict;
  };
  const Case cases[] = {{{0, 30, 20}, 0.02, "1C"}, {{0, 36, 37}, 0.02, "16"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.verdict);
    CharBench bench(c.gainError);
    bench.Enter(c.points);
    EXPECT_EQ(bench.Device("operResult"), c.verdict);
    EXPECT_EQ(bench.Text("cmbCharOperation"), "Disabled");
    EXPECT_EQ(bench.State("cmbCharOperation"), "replaced");  // "Disable and Allow ..." was picked and never written
    bench.Click("cmdResultChar");
    bench.Advance(200);
    EXPECT_EQ(bench.Text("txtParameter(110)"), "02");
    EXPECT_EQ(bench.Text("txtParameter(115)"), "37.4000015258789");
  }
}

TEST(CharacterizationDevice, ALinkThatBreaksBetweenTheStepsLosesThePoints) {
  CharBench bench;
  bench.Begin("2");
  bench.Point(0);
  const Json fault = bench.Ok({{"do", "simulator"}, {"fault", {{"kind", "offline"}}}})["id"];
  bench.Advance(5000);
  const Json screen = bench.Screen();
  EXPECT_EQ(screen["frame"], "frmMethodChar");
  EXPECT_EQ(screen["strip"][1], "DISCONNECTED");
  bench.Advance(9000);
  EXPECT_TRUE(bench.DataLine().starts_with("No answer since "));
  EXPECT_EQ(bench.Words("txtParameter(39)"), "stale");
  // The last point is taken with the pressure read last, its write is lost, and nothing is read back.
  bench.Boxes({"Yes"});
  bench.Requests();
  bench.Type("txtParameter(38)", "30");
  bench.Click("cmdSend");
  bench.Advance(2900);
  EXPECT_EQ(bench.Sent(), (Strings{"write 31", "read 39"}));
  EXPECT_EQ(bench.Text("txtParameter(191)"), bench.Text("txtParameter(192)"));
  bench.Ok({{"do", "simulator"}, {"clear", fault}});
  bench.Advance(5000);
  bench.Click("cmdResultChar");
  bench.Advance(200);
  EXPECT_EQ(bench.Text("txtParameter(115)"), "37.4000015258789");
  EXPECT_EQ(bench.Text("cmbCharOperation"), "Disabled");
}

}  // namespace
}  // namespace htr60::automation

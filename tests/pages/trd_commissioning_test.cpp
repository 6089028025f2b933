#include <cmath>

#include "page_driver.h"

// The pages of a pressure and a flow device from the node to the value that the instrument then measures.
namespace htr60::automation {
namespace {

double PrimaryValue(PageDriver& driver) {
  driver.Advance(3000);
  return driver.Ok({{"do", "simulator"}, {"get", Json::array({"pv"})}})["values"]["pv"]["value"];
}

double ShownPrimaryValue(PageDriver& driver) {
  driver.Activate("Pressure/Flow");
  driver.Tab("SSTabTRDSettings", 3);
  driver.Advance(3000);
  return std::stod(driver.Text("txtParameter(60)"));
}

void SetProcess(PageDriver& driver, double high, double low) {
  driver.Ok({{"do", "simulator"}, {"set", {{"process", {{"pressureHi", high}, {"pressureLo", low}}}}}});
}

/// A wait that is longer than a write, its re-read and the answer.
constexpr int kSettled = 5000;

TEST(TrdCommissioning, PressureInAnotherUnitAndRange) {
  PageDriver driver(Driver::Simulated());
  EXPECT_NEAR(PrimaryValue(driver), 10.0, 0.001);
  driver.Activate("Pressure/Flow");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbPrimaryValueType"), "Pressure");
  driver.Click("cmdTRDInScale");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(99)"), "37.400");
  EXPECT_EQ(driver.Text("lbArray(465)"), "kPa");
  driver.Type("txtParameter(99)", "20");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(99)"), "20.000");
  driver.Click("cmdBack");
  driver.Click("cmdTrdOutScale");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbUnitScaleOutput"), "kPa");
  driver.Type("txtParameter(92)", "200");
  driver.Choose("cmbUnitScaleOutput", "mbar");
  driver.Click("Command2");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbUnitScaleOutput"), "mbar");
  EXPECT_EQ(driver.Text("txtParameter(92)"), "200.000");
  EXPECT_EQ(driver.Text("txtParameter(200)"), "10");
  EXPECT_EQ(driver.Text("txtParameter(194)"), "37.400");  // in sensor units
  EXPECT_EQ(driver.Timer("TimerWriteCopyTrdOut")["enabled"], true);
  EXPECT_NEAR(PrimaryValue(driver), 100.0, 0.001);
  EXPECT_NEAR(ShownPrimaryValue(driver), 100.0, 0.001);
}

TEST(TrdCommissioning, FlowWithSquareRootAndCutOff) {
  PageDriver driver(Driver::Simulated({{"device", {{"primaryValueType", "Flow"}}}}));
  EXPECT_NEAR(PrimaryValue(driver), 50.0, 0.001);
  driver.Activate("Pressure/Flow");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbLinearizationType"), "Square Root");
  EXPECT_TRUE(driver.Visible("frmzGroup(12)"));
  SetProcess(driver, 10093.5, 10000);  // 0.25 % of the range, below the root's beginning
  EXPECT_NEAR(PrimaryValue(driver), 0.0, 0.0001);
  driver.Type("txtParameter(40)", "0");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(40)"), "0.000");
  EXPECT_NEAR(PrimaryValue(driver), 2.5, 0.001);
}

TEST(TrdCommissioning, SimulationReplacesWhatIsMeasured) {
  PageDriver driver(Driver::Simulated());
  driver.Activate("Pressure/Flow");
  driver.Tab("SSTabTRDSettings", 2);
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbPVSimulateEnable"), "Disable");
  driver.Choose("cmbPVSimulateEnable", "Enable");
  driver.Type("txtParameter(59)", "12.5");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbPVSimulateEnable"), "Enable");
  EXPECT_NEAR(PrimaryValue(driver), 12.5, 0.0001);
}

TEST(TrdCommissioning, TableIsEnabledAndARefusedOneIsShown) {
  PageDriver driver(Driver::Simulated());
  driver.Activate("Pressure/Flow");
  driver.Advance(kSettled);
  driver.Force("cmdTablePoints");
  driver.Advance(kSettled);
  EXPECT_FALSE(driver.Visible("PictMessageTable"));
  EXPECT_EQ(driver.Text("cmbNrPoints"), "2");
  driver.Choose("cmbNrPoints", "3");
  driver.Type("txtParameter(22)", "50");
  driver.Type("txtParameter(52)", "25.5");
  driver.Type("txtParameter(27)", "100");
  driver.Type("txtParameter(53)", "100");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(45)"), "New Table is Valid");
  EXPECT_EQ(driver.Text("cmbLinearizationType"), "User Defined(Table)");
  SetProcess(driver, 28700, 10000);  // half of the range: the middle point
  EXPECT_NEAR(PrimaryValue(driver), 37.4 * 0.255, 0.001);
  driver.Type("txtParameter(53)", "10");
  driver.Click("cmdWriteParameter");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(45)"), "Not Monotonous Dec");
  EXPECT_EQ(driver.Text("txtParameter(53)"), "100.000");  // what the device kept
  EXPECT_NEAR(PrimaryValue(driver), 37.4 * 0.255, 0.001);
}

TEST(TrdCommissioning, WritingBackWhatWasReadChangesNothing) {
  PageDriver driver(Driver::Simulated());
  driver.Activate("Pressure/Flow");
  driver.Advance(kSettled);
  for (const char* button : {"cmdTRDInScale", "cmdTemp"}) {
    SCOPED_TRACE(button);
    driver.Click(button);
    driver.Advance(kSettled);
    driver.Requests();
    driver.Answers();
    driver.Click("cmdWriteParameter");
    driver.Advance(kSettled);
    const Strings first = driver.Traffic();
    const Json firstAnswers = driver.Answers();
    driver.Click("cmdWriteParameter");
    driver.Advance(kSettled);
    ASSERT_EQ(first.size(), 2U);
    EXPECT_EQ(driver.Traffic(), first);
    EXPECT_EQ(driver.Answers(), firstAnswers);
    driver.Click("cmdBack");
  }
}

}  // namespace
}  // namespace htr60::automation

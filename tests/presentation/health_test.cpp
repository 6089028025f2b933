#include "screen_driver.h"

namespace htr60::automation {
namespace {

constexpr const char* kGood = "3F80000080";
constexpr const char* kDoubtful = "3F80000040";
constexpr const char* kBad = "3F80000000";

class Health : public testing::Test {
 protected:
  /// The outputs of the measuring chain, up to the last status.
  void Outputs(const char* primary, const char* first, const char* second, const char* third) {
    driver_.AnswerTags(5400, {{"SensorValue", "3F800000"},
                              {"SpecificHeight", kGood},
                              {"PrimaryValue", primary},
                              {"AI1Out", first},
                              {"AI2Out", second},
                              {"AI3Out", third}});
  }
  /// A block's view reads, `enable` 01 while it simulates. The unit comes alone for the first block.
  void View(const char* enable, const char* output, const char* unit = "42C8000000000000046D0200") {
    driver_.AnswerTags(2700, {{"AISimulate", std::string("803F800000") + enable},
                              {"AIPrimaryValue", kGood},
                              {"AIChannel", "0112"},
                              {"TRDPVType", "0000"},
                              {"AIPVScale", "42C8000000000000"},
                              {"AIPVUnit", unit},
                              {"AIModeBlock", "08"},
                              {"AIDamping", "3F800000"},
                              {"AIFailSafeType", "00"},
                              {"AIFailSafeVal", "3F800000"},
                              {"AIScaleOut", "42C8000000000000046D0200"},
                              {"AIOut", output},
                              {"AIAlarm", "0000000000000000"}});
  }
  void FirstView(const char* enable, const char* output) {
    driver_.Activate("AI 1 View");
    View(enable, output, "046D");
  }
  std::string Now() { return driver_.Health(); }

  ScreenDriver driver_;
};

TEST_F(Health, NamesItsSourcesInTheirOrder) {
  Outputs(kBad, kBad, kBad, kBad);
  EXPECT_EQ(Now(), "Failure: Primary Value, AI 1 Out, AI 2 Out, AI 3 Out");
  driver_.AnswerTags(5100, {{"SensorDiag", "01"}, {"SensorConnected", "01"}, {"SensorInitialized", "AA"}});
  EXPECT_EQ(Now(), "Failure: Primary Value, AI 1 Out, AI 2 Out, AI 3 Out, Sensor Diag");
  Outputs(kDoubtful, kGood, kDoubtful, kGood);
  EXPECT_EQ(Now(), "Failure: Sensor Diag");
  driver_.AnswerTags(5100, {{"SensorDiag", "00"}, {"SensorConnected", "01"}, {"SensorInitialized", "AA"}});
  EXPECT_EQ(Now(), "Out of specification: Primary Value, AI 2 Out");
  Outputs(kGood, kGood, kGood, kGood);
  EXPECT_EQ(Now(), "Good");
}

// The status of the primary value on Observe is a label, and so is that of a block's view.
TEST_F(Health, OneQuantityOnSeveralPagesCountsAsSetLast) {
  Outputs(kBad, kGood, kGood, kGood);
  EXPECT_EQ(Now(), "Failure: Primary Value");
  FirstView("00", kDoubtful);
  EXPECT_EQ(Now(), "Failure: Primary Value");
  Outputs(kGood, kGood, kGood, kGood);
  EXPECT_EQ(Now(), "Good");
  FirstView("00", kDoubtful);
  EXPECT_EQ(Now(), "Out of specification: AI 1 Out") << "its label shows the text of before, and was set again";
  Outputs(kGood, kBad, kGood, kGood);
  EXPECT_EQ(Now(), "Failure: AI 1 Out");
}

TEST_F(Health, WhatTheBlocksShareIsKeptForEach) {
  FirstView("01", kBad);
  EXPECT_EQ(Now(), "Failure: AI 1 Out");
  driver_.Activate("AI 2 View");
  View("00", kBad);
  EXPECT_EQ(Now(), "Failure: AI 1 Out, AI 2 Out");
  driver_.Activate("AI 3 View");
  View("01", kGood);
  EXPECT_EQ(Now(), "Failure: AI 1 Out, AI 2 Out");
  FirstView("01", kGood);
  driver_.Activate("AI 2 View");
  View("00", kGood);
  EXPECT_EQ(Now(), "Function check: Simulate Enable") << "equal captions once";
  FirstView("00", kGood);
  EXPECT_EQ(Now(), "Function check: Simulate Enable") << "that of the third block";
  driver_.Activate("AI 3 View");
  View("00", kGood);
  EXPECT_EQ(Now(), "Good");
}

// An answer that comes when its page was left says nothing of any block.
TEST_F(Health, ASharedSetWithoutABlockCountsForNone) {
  driver_.Activate("AI 2 View");
  View("00", kGood);
  FirstView("00", kGood);
  driver_.SetMember("CurrentPage", "Observe");
  View("01", kBad, "046D");
  EXPECT_EQ(driver_.Text("lbDeviceView(10)"), "Active");
  EXPECT_EQ(Now(), "Good");
  driver_.SetMember("CurrentPage", "AI 3 View");
  driver_.AnswerTags(1, {});
  EXPECT_EQ(Now(), "Good") << "and not later either";
  View("00", kBad);
  EXPECT_EQ(Now(), "Failure: AI 3 Out");
}

TEST_F(Health, ObserveTellsOfThePrimaryValue) {
  ScreenDriver driver(Driver::Simulated());
  driver.Activate("Observe");
  driver.Advance(100);
  EXPECT_EQ(driver.Health(), "Good");
  const Json fault = driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "boardFailure"}}}});
  driver.Advance(15000);
  EXPECT_EQ(driver.Health(), "Failure: Primary Value");
  driver.Activate("Diagnosis");
  driver.Advance(100);
  EXPECT_EQ(driver.Health(), "Failure: Primary Value, Sensor Diag");
  driver.Ok({{"do", "simulator"}, {"clear", fault.at("id")}});
  driver.Tab("SSTabDiagnosis", 2);
  driver.Advance(6100);
  EXPECT_EQ(driver.Health(), "Failure: Sensor Diag") << "what was read last counts, however old";
  driver.Tab("SSTabDiagnosis", 0);
  driver.Advance(100);
  EXPECT_EQ(driver.Health(), "Good");
}

}  // namespace
}  // namespace htr60::automation

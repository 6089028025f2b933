#include "presentation/field_state.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "screen_driver.h"

namespace htr60::automation {
namespace {

using presentation::FieldEvent;
using presentation::FieldState;
using presentation::FieldStep;
using presentation::NextStep;

FieldState StateAt(std::size_t i) { return static_cast<FieldState>(i); }
FieldEvent EventAt(std::size_t i) { return static_cast<FieldEvent>(i); }

// What holds for whole rows and columns of the table.
TEST(FieldStateTable, KeepsItsRules) {
  for (std::size_t s = 0; s < presentation::kFieldStates; ++s) {
    const FieldState state = StateAt(s);
    const std::string name(NameOf(state));
    const bool waits = state == FieldState::kSent || state == FieldState::kNotReadBack;
    const bool typed = state == FieldState::kNotWritten;
    const FieldStep opened = NextStep(state, FieldEvent::kOpened);
    EXPECT_EQ(opened == FieldStep::kStay, waits || typed || state == FieldState::kNotRead) << name;
    EXPECT_EQ(NextStep(state, FieldEvent::kEdited), typed ? FieldStep::kStay : FieldStep::kNotWritten) << name;
    EXPECT_EQ(NextStep(state, FieldEvent::kWritten), FieldStep::kSent) << name;
    EXPECT_EQ(NextStep(state, FieldEvent::kSetEarly), FieldStep::kStay) << name << ": decides nothing";
    const bool fades = state == FieldState::kConfirmed || state == FieldState::kChanged;
    EXPECT_EQ(NextStep(state, FieldEvent::kFaded), fades ? FieldStep::kRest : FieldStep::kStay) << name;
    EXPECT_EQ(NextStep(state, FieldEvent::kVerdictMissing),
              state == FieldState::kSent ? FieldStep::kNotReadBack : FieldStep::kStay)
        << name;
    for (std::size_t e = 0; e < presentation::kFieldEvents; ++e) {
      // Only what is typed can be replaced, only what was sent can be missed.
      if (NextStep(state, EventAt(e)) == FieldStep::kReplaced) {
        EXPECT_TRUE(typed) << name;
      }
    }
  }
}

TEST(FieldStateTable, NamesAreDifferent) {
  std::set<std::string_view> names;
  for (std::size_t s = 0; s < presentation::kFieldStates; ++s) names.insert(NameOf(StateAt(s)));
  EXPECT_EQ(names.size(), presentation::kFieldStates);
}

// ---- the same through a page: the constants of the density device, seven decimals

constexpr const char* kGravity = "txtParameter(218)";
constexpr const char* kHeight = "txtParameter(217)";

class FieldStates : public testing::Test {
 protected:
  FieldStates() {
    d_.AnswerTags(7900, {{"TRDPVType", "0081"}});
    d_.Activate("Density/Concentration");
    d_.Tab("SSTabDensity", 2);
    d_.Click("cmdConstant");
  }
  // 411CF5C3 is 9.8100004, 3F000000 0.5
  void Answer(const std::string& gravity = "411CF5C3", const std::string& height = "3F000000") {
    d_.AnswerTags(5800, {{"Gravity", gravity}, {"Height", height}, {"LinearDilatation", "00000000"}});
  }
  void WriteGravity(const std::string& text) {
    Answer();
    d_.Type(kGravity, text);
    d_.Write();
  }
  void Reread() { d_.Advance(2000); }

  ScreenDriver d_;
};

TEST_F(FieldStates, NotReadUntilTheProgramSetsIt) {
  EXPECT_EQ(d_.State(kGravity), "not read");
  EXPECT_EQ(d_.Words(kGravity), "not read");
  EXPECT_EQ(d_.Hint(kGravity), "") << "nothing read, nothing edited: nothing is wrong with it yet";
  Answer();
  EXPECT_EQ(d_.State(kGravity), "as read");
  EXPECT_EQ(d_.Words(kGravity), "");
}

TEST_F(FieldStates, ANumberTypedBackIsNoEdit) {
  Answer("411CF5C3", "3F000000");
  for (const auto& [text, state] : {std::pair{"0.6", "not written"},
                                    {"0.5", "as read"},
                                    {"0.50", "as read"},
                                    {"0.5004", "not written"},
                                    {"", "not written"},
                                    {"0.5000000", "as read"}}) {
    d_.Type(kHeight, text);
    EXPECT_EQ(d_.State(kHeight), state) << text;
  }
}

TEST_F(FieldStates, AWriteWaitsForItsReRead) {
  WriteGravity("9.8");
  EXPECT_EQ(d_.State(kGravity), "sent");
  EXPECT_EQ(d_.State(kHeight), "as read") << "sent as well, but not edited";
  Answer();  // a live answer that passes the re-read decides nothing
  EXPECT_EQ(d_.State(kGravity), "sent");
  Reread();
  EXPECT_EQ(d_.State(kGravity), "sent");
  d_.Advance(10'000);
  EXPECT_EQ(d_.State(kGravity), "sent");
  d_.Advance(1);
  EXPECT_EQ(d_.State(kGravity), "not read back");
  EXPECT_EQ(d_.Words(kGravity), "sent, not read back");
  Answer();
  EXPECT_EQ(d_.State(kGravity), "as read");
}

struct Verdict {
  const char* sent;
  const char* digits;
  const char* state;
  const char* words;
};

TEST_F(FieldStates, VerdictsCanBeTrusted) {
  constexpr Verdict kVerdicts[] = {
      {"1.5", "3FC00000", "confirmed", "confirmed"},
      {"1.50", "3FC00000", "confirmed", "confirmed"},
      {"9.81", "411CF5C2", "stored", "stored as 9.8099995"},
      {"9.81", "41200000", "differs", "device: 10.0000000, sent: 9.81"},
  };
  for (const Verdict& v : kVerdicts) {
    SCOPED_TRACE(v.words);
    WriteGravity(v.sent);
    Reread();
    Answer(v.digits);
    EXPECT_EQ(d_.State(kGravity), v.state);
    EXPECT_EQ(d_.Words(kGravity), v.words);
    d_.Click("cmdBack");
    d_.Tab("SSTabDensity", 1);
    d_.Tab("SSTabDensity", 2);
    d_.Click("cmdConstant");
  }
}

TEST_F(FieldStates, TheLastSetInTimeDecides) {
  WriteGravity("1.5");
  Reread();
  Answer("3FC00000");
  EXPECT_EQ(d_.State(kGravity), "confirmed");
  d_.Advance(9'000);
  Answer("40000000");
  EXPECT_EQ(d_.Words(kGravity), "device: 2.0000000, sent: 1.5");
  d_.Advance(5'000);
  Answer("40400000");
  EXPECT_EQ(d_.Words(kGravity), "device: 3.0000000, sent: 1.5") << "what the device shows now";
  Answer("3FC00000");
  EXPECT_EQ(d_.State(kGravity), "as read") << "what was sent stands there after all";
}

TEST_F(FieldStates, ConfirmedFadesAfterHalfAMinute) {
  WriteGravity("1.5");
  Reread();
  Answer("3FC00000");
  d_.Advance(29'999);
  EXPECT_EQ(d_.State(kGravity), "confirmed");
  d_.Advance(1);
  EXPECT_EQ(d_.State(kGravity), "as read");
}

TEST_F(FieldStates, WhatWasTypedIsToldWhenItIsReplaced) {
  Answer();
  d_.Type(kGravity, "12.7");
  Answer("411CF5C3");
  EXPECT_EQ(d_.State(kGravity), "replaced");
  EXPECT_EQ(d_.Words(kGravity), "replaced by the device, was: 12.7");
  d_.Type(kGravity, "1.5");
  Answer("3FC00000");
  EXPECT_EQ(d_.State(kGravity), "as read") << "the same number";
}

TEST_F(FieldStates, ALossIsToldInPercent) {
  Answer();
  // Bits are counted from the binary point: a small number loses most of them.
  d_.Type("txtParameter(215)", "0.00001200");
  d_.Write();
  Reread();
  const std::string digits = d_.Codec("FloatToHex", Json::array({"0.00001200"}));
  d_.AnswerTags(5800, {{"Gravity", "3F800000"}, {"Height", "3F800000"}, {"LinearDilatation", digits}});
  EXPECT_EQ(d_.State("txtParameter(215)"), "stored");
  EXPECT_EQ(d_.Words("txtParameter(215)"), "stored as 0.00001192, 0.7 % below");
}

TEST_F(FieldStates, TheLockIsTheCauseWhereItIsKnown) {
  d_.AnswerTags(100, {{"TRDPVType", "0081"},
                      {"PHYTag", "41"},
                      {"PHYManufacturer", "60BE"},
                      {"TRDOrderingCode", "41"},
                      {"PHYFirmware", "312E3038202020202020202020202020"},
                      {"PHYDevSerialNumber", "41"},
                      {"PHYGSDIdentNumSelector", "01"},
                      {"PHYWriteProtection", "0000"}});
  WriteGravity("1.5");
  Reread();
  Answer("40000000");
  EXPECT_EQ(d_.Words(kGravity), "device: 2.0000000, sent: 1.5, the instrument is write locked");
}

TEST_F(FieldStates, AnotherPageEndsAVerdictButNotAnEdit) {
  WriteGravity("1.5");
  Reread();
  Answer("3FC00000");
  d_.Type(kHeight, "0.7");
  d_.Click("cmdBack");
  d_.Click("cmdConstant");
  EXPECT_EQ(d_.State(kGravity), "not read");
  EXPECT_EQ(d_.State(kHeight), "not written");
  Answer();
  EXPECT_EQ(d_.Words(kHeight), "replaced by the device, was: 0.7");
  EXPECT_EQ(d_.State(kGravity), "as read") << "opened by a button: what is new is no change";
}

TEST(FieldStatesOfAPage, TheSameNodeAgainTellsWhatChanged) {
  ScreenDriver d;
  const auto answer = [&](const char* cutOff) {
    d.AnswerTags(
        500,
        {{"TRDPVType", "0000"}, {"TRDLinType", "00"}, {"TRDFlowLinSqrt", "41200000"}, {"TRDLowFlowCutOff", cutOff}});
  };
  d.AnswerTags(7900, {{"TRDPVType", "0000"}});
  d.Activate("Pressure/Flow");
  d.Choose("cmbLinearizationType", "Square Root");
  answer("3F800000");
  d.Choose("cmbLinearizationType", "Square Root");
  d.Activate("Pressure/Flow");
  EXPECT_EQ(d.State("txtParameter(40)"), "not read");
  d.AnswerTags(
      500,
      {{"TRDPVType", "0000"}, {"TRDLinType", "02"}, {"TRDFlowLinSqrt", "41200000"}, {"TRDLowFlowCutOff", "40000000"}});
  EXPECT_EQ(d.State("txtParameter(40)"), "changed");
  EXPECT_EQ(d.State("txtParameter(37)"), "as read");
  d.Advance(30'000);
  EXPECT_EQ(d.State("txtParameter(40)"), "as read");
}

TEST(FieldStatesOfAPage, ACommandHasNoVerdict) {
  ScreenDriver d;
  d.AnswerTags(7900, {{"TRDPVType", "0081"}});
  d.Activate("Density/Concentration");
  d.Tab("SSTabDensity", 3);
  const char* kList = "cmbDensBackupRestore";
  const auto answer = [&] { d.AnswerTags(4000, {{"BackupRestore", "00"}}); };
  answer();
  EXPECT_EQ(d.State(kList), "as read");
  d.Choose(kList, "Initial Value");
  EXPECT_EQ(d.State(kList), "not written") << "the row already shown, too";
  d.Write();
  EXPECT_EQ(d.State(kList), "sent");
  EXPECT_EQ(d.Footer(), "1 sent");
  d.Advance(2000);
  answer();
  EXPECT_EQ(d.State(kList), "shown");
  EXPECT_EQ(d.Words(kList), "device shows: Initial Value");
  EXPECT_EQ(d.Footer(), "") << "no verdict, no count";
}

TEST(FieldStatesOfAPage, EitherButtonOfTheOutputScaleCoversBothGroups) {
  for (const char* button : {"Command1", "Command2"}) {
    ScreenDriver d;
    d.AnswerTags(7900, {{"TRDPVType", "0000"}});
    d.Activate("Pressure/Flow");
    d.AnswerTags(500, {{"TRDPVType", "0000"},
                       {"TRDLinType", "00"},
                       {"TRDFlowLinSqrt", "41200000"},
                       {"TRDLowFlowCutOff", "3F800000"}});
    d.Click("cmdTrdOutScale");
    d.Type("txtParameter(92)", "200");
    d.Choose("cmbUnitScaleOutput", "mbar");
    d.Click(button);
    EXPECT_EQ(d.State("txtParameter(92)"), "sent") << button;
    EXPECT_EQ(d.State("cmbUnitScaleOutput"), "sent") << button;
  }
}

}  // namespace
}  // namespace htr60::automation

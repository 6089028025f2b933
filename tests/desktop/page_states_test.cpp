#include "desktop/field_states.h"
#include "page_support.h"

namespace htr60::desktop {
namespace {

constexpr auto kUpper = id::txtParameter(37);
constexpr auto kLower = id::txtParameter(40);
constexpr auto kMode = id::cmbPVSimulateEnable;
constexpr auto kTag = id::txtParameter(0);
constexpr auto kLive = id::txtParameter(125);
constexpr auto kNext = id::txtParameter(38);

class FieldStatesTest : public testing::Test {
 protected:
  void Turn() { states_.Turn(control_->form.TakeChanges()); }
  void Set(TextId field, std::string_view text) {
    control_->form.At(field).SetText(text);
    Turn();
  }
  void Set(ChoiceId list, std::string_view text) {
    control_->form.At(list).SetText(text);
    Turn();
  }
  void Press(ButtonId button) {
    states_.Press(button, &kFirst);
    Turn();
  }
  void Wait(std::int64_t milliseconds) {
    now_ += milliseconds;
    states_.Tick();
  }
  // The control's own timer comes due: the re-read goes out.
  void Reread() {
    control_->TimerDue(static_cast<int>(TimerId::TimerReadAfterWrite));
    Turn();
  }
  // A field is read, edited, written, and its re-read sent.
  void WriteUpper(std::string_view text) {
    Set(kUpper, "1.000");
    states_.Type(kUpper, text);
    Press(id::cmdWriteParameter);
    Reread();
  }

  std::int64_t now_ = 1'000;
  TestControl control_;
  FieldStates states_{*control_, [this] { return now_; }};
};

TEST_F(FieldStatesTest, NotReadUntilTheProgramSetsIt) {
  EXPECT_EQ(states_.Of(kUpper), FieldState::kNotRead);
  EXPECT_EQ(states_.Words(kUpper), "not read");
  EXPECT_FALSE(states_.ReadOrEdited(kUpper));
  Set(kUpper, "");  // equal to what stands there: the device has answered all the same
  EXPECT_EQ(states_.Of(kUpper), FieldState::kAsRead);
  EXPECT_TRUE(states_.ReadOrEdited(kUpper));
  states_.PageOpened(kFirst, false);
  EXPECT_EQ(states_.Of(kUpper), FieldState::kNotRead);
}

TEST_F(FieldStatesTest, AnEditIsNotWrittenUntilTypedBack) {
  Set(kUpper, "12.500");
  states_.Type(kUpper, "12.7");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kNotWritten);
  EXPECT_EQ(control_->form.At(kUpper).Text(), "12.7");
  states_.Type(kUpper, "12.500");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kAsRead);
  states_.Type(kLower, "1");
  states_.Type(kLower, "");
  EXPECT_EQ(states_.Of(kLower), FieldState::kNotRead);  // nothing was read in between
  Set(kMode, "Enable");
  states_.Pick(kMode, 1);
  EXPECT_EQ(states_.Of(kMode), FieldState::kNotWritten);
}

TEST_F(FieldStatesTest, ASetOverAnEditReplacesIt) {
  Set(kUpper, "12.500");
  states_.Type(kUpper, "12.7");
  Set(kUpper, "12.500");
  EXPECT_EQ(states_.Words(kUpper), "replaced by the device, was: 12.7");
  Set(kUpper, "12.500");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kReplaced);  // till the next edit
  states_.Type(kUpper, "12.8");
  Set(kUpper, "12.8");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kAsRead);
}

TEST_F(FieldStatesTest, AnEditAndASetInOneTurnAreToldApart) {
  Set(kUpper, "1.000");
  control_->form.At(kUpper).SetText("2.000");  // the turn has not come yet
  states_.Type(kUpper, "1.000");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kNotWritten);
  Turn();
  EXPECT_EQ(states_.Of(kUpper), FieldState::kNotWritten);
}

TEST_F(FieldStatesTest, WriteTakesTheEditedFieldsOfTheVisibleTab) {
  Set(kUpper, "1.000");
  Set(kTag, "A");
  Set(kLower, "0.000");
  Set(kLive, "5.000");
  states_.Type(kUpper, "2");
  states_.Type(kTag, "B");
  states_.Type(kLive, "6");  // on another tab
  Press(id::cmdWriteParameter);
  EXPECT_EQ(control_.dtm->writes, std::vector<std::string>{"1"});
  EXPECT_EQ(states_.Of(kUpper), FieldState::kSent);
  EXPECT_EQ(states_.Of(kTag), FieldState::kSent);
  EXPECT_EQ(states_.Of(kLower), FieldState::kAsRead);
  EXPECT_EQ(states_.Of(kLive), FieldState::kNotWritten);
  EXPECT_EQ(states_.Counts(kFirst).sent, 2);
  EXPECT_EQ(states_.Counts(kFirst).notWritten, 0);
  EXPECT_EQ(states_.Unwritten(kFirst, 1, -1), 1);
}

TEST_F(FieldStatesTest, AGroupsButtonTakesItsGroupAlone) {
  states_.Type(kUpper, "2");
  states_.Type(kTag, "B");
  Press(id::cmdWriteCalPoint);
  EXPECT_EQ(states_.Of(kUpper), FieldState::kSent);
  EXPECT_EQ(states_.Of(kTag), FieldState::kNotWritten);
}

TEST_F(FieldStatesTest, APressThatSendsNothingLeavesTheEdit) {
  states_.Type(kUpper, "2");
  control_->ConnectionState = kDisconnected;
  Press(id::cmdWriteParameter);
  EXPECT_TRUE(control_.dtm->writes.empty());
  EXPECT_EQ(states_.Of(kUpper), FieldState::kNotWritten);
}

TEST_F(FieldStatesTest, TheRereadConfirms) {
  WriteUpper("12.5");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kSent);
  Wait(300);
  Set(kUpper, "12.500");  // the same number at the decimals shown
  EXPECT_EQ(states_.Words(kUpper), "confirmed");
  EXPECT_EQ(states_.Counts(kFirst).confirmed, 1);
  Wait(29'999);
  EXPECT_EQ(states_.Of(kUpper), FieldState::kConfirmed);
  ASSERT_TRUE(states_.NextDeadline().has_value());
  EXPECT_EQ(*states_.NextDeadline(), now_ + 1);
  Wait(1);
  EXPECT_EQ(states_.Of(kUpper), FieldState::kAsRead);
}

TEST_F(FieldStatesTest, VerdictsCompareAtTheDecimalsShown) {
  struct {
    const char* sent;
    const char* device;
    bool same;
  } constexpr kCases[] = {{"12.5004", "12.500", true}, {"12.5006", "12.500", false}, {"1e1", "10.000", true},
                          {"-0.0001", "0.000", true},  {" 7 ", "7.000", true},       {"12.5", "12.499", false},
                          {"abc", "abc", true},        {"abc", "0.000", false},      {"007", "7", true}};
  for (const auto& row : kCases) {
    WriteUpper(row.sent);
    Set(kUpper, row.device);
    EXPECT_EQ(states_.Of(kUpper), row.same ? FieldState::kConfirmed : FieldState::kDiffers) << row.sent;
    states_.PageLeft(kFirst);
  }
}

TEST_F(FieldStatesTest, TheDeviceDiffersTillTheNextEditOrThePageIsLeft) {
  WriteUpper("12.5");
  Set(kUpper, "12.499");
  EXPECT_EQ(states_.Words(kUpper), "device: 12.499, sent: 12.5");
  Wait(60'000);
  EXPECT_EQ(states_.Of(kUpper), FieldState::kDiffers);
  states_.PageLeft(kFirst);
  EXPECT_EQ(states_.Of(kUpper), FieldState::kAsRead);
}

TEST_F(FieldStatesTest, TheLastSetInTimeDecides) {
  WriteUpper("12.5");
  Set(kUpper, "1.000");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kDiffers);
  Wait(2'000);
  Set(kUpper, "12.500");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kConfirmed);
  Wait(2'000);
  Set(kUpper, "3.000");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kDiffers);
}

TEST_F(FieldStatesTest, SetsBeforeTheRereadDecideNothing) {
  Set(kUpper, "1.000");
  states_.Type(kUpper, "2");
  Press(id::cmdWriteParameter);
  Set(kUpper, "1.000");  // a live answer that was under way
  EXPECT_EQ(states_.Of(kUpper), FieldState::kSent);
  Wait(20'000);
  EXPECT_EQ(states_.Of(kUpper), FieldState::kSent);  // the time starts with the re-read
  Reread();
  Set(kUpper, "2.000");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kConfirmed);
}

TEST_F(FieldStatesTest, WithoutAReadItIsNotReadBack) {
  WriteUpper("2");
  Wait(10'000);
  EXPECT_EQ(states_.Of(kUpper), FieldState::kSent);
  Wait(1);
  EXPECT_EQ(states_.Words(kUpper), "sent, not read back");
  Set(kUpper, "2.000");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kAsRead);
}

TEST_F(FieldStatesTest, AnEditWhileSentIsNotWrittenAgain) {
  Set(kUpper, "1.000");
  states_.Type(kUpper, "2");
  Press(id::cmdWriteParameter);
  states_.Type(kUpper, "3");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kNotWritten);
  Reread();
  Set(kUpper, "2.000");
  EXPECT_EQ(states_.Words(kUpper), "replaced by the device, was: 3");
}

TEST_F(FieldStatesTest, ARereadThatGivesAnotherTextSaysChanged) {
  Set(kUpper, "1.000");
  Set(kUpper, "1.000");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kAsRead);
  Set(kUpper, "2.000");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kChanged);
  Wait(30'000);
  EXPECT_EQ(states_.Of(kUpper), FieldState::kAsRead);
  Set(kLive, "1.000");
  Set(kLive, "2.000");
  EXPECT_EQ(states_.Of(kLive), FieldState::kAsRead);
}

TEST_F(FieldStatesTest, OpeningTheOpenPageAgainCompares) {
  Set(kUpper, "1.000");
  Set(kLower, "1.000");
  states_.PageOpened(kFirst, true);
  EXPECT_EQ(states_.Of(kUpper), FieldState::kNotRead);
  Set(kUpper, "2.000");
  Set(kLower, "1.000");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kChanged);
  EXPECT_EQ(states_.Of(kLower), FieldState::kAsRead);
  states_.PageOpened(kFirst, false);  // another page on the same frame
  Set(kLower, "5.000");
  EXPECT_EQ(states_.Of(kLower), FieldState::kAsRead);
}

TEST_F(FieldStatesTest, AnUnwrittenTextOutlivesThePage) {
  Set(kUpper, "1.000");
  states_.Type(kUpper, "2");
  states_.PageLeft(kFirst);
  states_.PageOpened(kFirst, false);
  EXPECT_EQ(states_.Of(kUpper), FieldState::kNotWritten);
  Set(kUpper, "1.000");
  EXPECT_EQ(states_.Of(kUpper), FieldState::kReplaced);
}

TEST_F(FieldStatesTest, CommandsGetNoVerdict) {
  control_->form.SSTabTRDSettings.SetIndex(1);
  Set(id::cmbFactoryReset, "No Function");
  states_.Pick(id::cmbFactoryReset, 1);
  Press(id::cmdWriteParameter);
  EXPECT_EQ(states_.Words(id::cmbFactoryReset), "sent");
  Reread();
  Set(id::cmbFactoryReset, "No Function");
  EXPECT_EQ(states_.Words(id::cmbFactoryReset), "device shows: No Function");
  EXPECT_EQ(ShapeOf(states_.Of(id::cmbFactoryReset)), Shape::kNone);
}

TEST_F(FieldStatesTest, TheNextPressurePointHasNoState) {
  control_->form.SSTabTRDSettings.SetIndex(1);
  EXPECT_EQ(states_.Words(kNext), "");
  Set(kNext, "");
  EXPECT_FALSE(states_.ReadOrEdited(kNext));  // emptied by the program: not odd
  states_.Type(kNext, "x");
  EXPECT_TRUE(states_.ReadOrEdited(kNext));
  EXPECT_EQ(states_.Words(kNext), "");
  EXPECT_EQ(states_.Counts(kFirst).notWritten, 0);
  Set(kNext, "");
  EXPECT_FALSE(states_.ReadOrEdited(kNext));
}

TEST_F(FieldStatesTest, CountsAreOfWhatCanBeSeen) {
  states_.Type(kLower, "2");
  states_.Type(kTag, "B");
  EXPECT_EQ(states_.Counts(kFirst).notWritten, 2);
  EXPECT_EQ(states_.First(kFirst, FieldState::kNotWritten), kLower);
  control_->form.frmzGroup(12).SetVisible(false);
  EXPECT_EQ(states_.Counts(kFirst).notWritten, 1);
  control_->form.At(kLower).SetEnabled(false);
  EXPECT_EQ(states_.Counts(kFirst).notWritten, 0);
  EXPECT_FALSE(states_.First(kFirst, FieldState::kNotWritten));
  EXPECT_EQ(states_.Of(kLower), FieldState::kNotWritten);
}

TEST_F(FieldStatesTest, AListFilledAnewHasNoEdit) {
  Set(kMode, "Enable");
  states_.Pick(kMode, 1);
  control_->FillLists(kAtStart);
  Turn();
  EXPECT_EQ(states_.Of(kMode), FieldState::kAsRead);
}

TEST_F(FieldStatesTest, FiguresDrawWhatWasSetOrTypedSinceTheNode) {
  Set(kUpper, "1.000");
  EXPECT_TRUE(states_.SetOrTypedSinceNode(kUpper));
  states_.NodeActivated();
  EXPECT_FALSE(states_.SetOrTypedSinceNode(kUpper));
  states_.Type(kUpper, "2");
  EXPECT_TRUE(states_.SetOrTypedSinceNode(kUpper));
  EXPECT_FALSE(states_.SetOrTypedSinceNode(kLower));
}

TEST_F(FieldStatesTest, TellsWhatChangedOnce) {
  states_.TakeChanged();
  states_.Type(kUpper, "2");
  states_.Type(kUpper, "3");
  EXPECT_EQ(states_.TakeChanged(), std::vector<ControlId>{kUpper});
  EXPECT_TRUE(states_.TakeChanged().empty());
}

}  // namespace
}  // namespace htr60::desktop

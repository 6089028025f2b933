#include <QAccessible>
#include <QClipboard>
#include <QLineEdit>
#include <QMessageBox>
#include <QTabBar>
#include <QTest>

#include "desktop/page/choice_field.h"
#include "desktop/page/spots.h"
#include "desktop_test.h"
#include "page_area_test.h"

namespace htr60::desktop {
namespace {

using presentation::Spot;

constexpr Qt::KeyboardModifiers kNo = Qt::NoModifier;
constexpr Qt::KeyboardModifiers kShift = Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers kCtrl = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers kAlt = Qt::AltModifier;

/// A key as the platform delivers it to whoever has the focus: shortcuts come first.
void Deliver(int key, Qt::KeyboardModifiers with = kNo, const QString& text = {}, bool held = false) {
  QWidget* focus = QApplication::activePopupWidget();
  if (focus != nullptr && focus->focusWidget() != nullptr) focus = focus->focusWidget();
  if (focus == nullptr) focus = QApplication::focusWidget();
  ASSERT_NE(focus, nullptr);
  QTest::simulateEvent(focus, true, key, with, text, held);
  QApplication::processEvents();
}

void Type(const char* text) {
  for (const char c : std::string(text)) Deliver(0, kNo, QString(QLatin1Char(c)));
}

std::string NameOfSpot(const QWidget* widget) {
  const Spot spot = SpotOf(widget);
  switch (spot.part) {
    case Spot::Part::kTree:
      return "tree";
    case Spot::Part::kControl:
      return NameOf(spot.control);
    case Spot::Part::kFooter:
      return "footer";
    case Spot::Part::kRevert:
      return "revert";
    default:
      return "elsewhere";
  }
}

std::string FocusName() { return NameOfSpot(QApplication::focusWidget()); }

class KeyboardTest : public DesktopTest {
 protected:
  using DesktopTest::DesktopTest;

  /// With arrows and Enter alone.
  bool OpenByKeys(const char* node) {
    Deliver(Qt::Key_Home);
    for (int i = 0; i < 60 && window_.Tree().currentItem()->text(0) != QLatin1String(node); ++i) Deliver(Qt::Key_Down);
    Deliver(Qt::Key_Return);
    return window_.Tree().currentItem()->text(0) == QLatin1String(node) && Settle();
  }
  char LetterOf(ControlId button) {
    for (const presentation::ScreenButton& shown : window_.Presented().Shown().buttons) {
      if (shown.control == button) return shown.mnemonic;
    }
    return '\0';
  }
};

TEST_F(KeyboardTest, APageIsWalkedByKeysAlone) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(OpenByKeys("Pressure/Flow"));
  const struct {
    int key;
    Qt::KeyboardModifiers with;
    bool held;
    const char* focus;
    const char* title;
    int tab;
  } kSteps[] = {
      {Qt::Key_F6, kNo, false, "SSTabTRDSettings", "Pressure/Flow", 0},
      {Qt::Key_Right, kNo, false, "SSTabTRDSettings", "Pressure/Flow", 1},
      {Qt::Key_Right, kNo, true, "SSTabTRDSettings", "Pressure/Flow", 1},
      {Qt::Key_Tab, kNo, false, "cmdTRDInScale", "Pressure/Flow", 1},
      {Qt::Key_Tab, kNo, false, "cmdTrdOutScale", "Pressure/Flow", 1},
      {Qt::Key_Return, kNo, true, "cmdTrdOutScale", "Pressure/Flow", 1},
      {Qt::Key_Return, kNo, false, "txtParameter(92)", "Transducer Output Scale", 1},
      {Qt::Key_Return, kNo, false, "txtParameter(81)", "Transducer Output Scale", 1},
      {Qt::Key_Backtab, kShift, false, "txtParameter(92)", "Transducer Output Scale", 1},
      {Qt::Key_Left, kAlt, false, "cmdTrdOutScale", "Pressure/Flow", 1},
      {Qt::Key_Space, kNo, false, "txtParameter(92)", "Transducer Output Scale", 1},
      {Qt::Key_B, kAlt, false, "cmdTrdOutScale", "Pressure/Flow", 1},
      {Qt::Key_B, kAlt, false, "cmdTrdOutScale", "Pressure/Flow", 1},
      {Qt::Key_Tab, kCtrl, false, "SSTabTRDSettings", "Pressure/Flow", 2},
      {Qt::Key_Tab, kCtrl, true, "SSTabTRDSettings", "Pressure/Flow", 2},
      {Qt::Key_PageUp, kCtrl, false, "SSTabTRDSettings", "Pressure/Flow", 1},
      {Qt::Key_PageDown, kCtrl, false, "SSTabTRDSettings", "Pressure/Flow", 2},
      {Qt::Key_Escape, kNo, false, "SSTabTRDSettings", "Pressure/Flow", 2},
      {Qt::Key_F6, kNo, false, "cmdWriteParameter", "Pressure/Flow", 2},
      {Qt::Key_Escape, kNo, false, "cmdWriteParameter", "Pressure/Flow", 2},
      {Qt::Key_F6, kShift, false, "SSTabTRDSettings", "Pressure/Flow", 2},
      {Qt::Key_F6, kShift, false, "tree", "Pressure/Flow", 2},
      {Qt::Key_F5, kNo, false, "tree", "Pressure/Flow", 0},
  };
  int number = 0;
  for (const auto& step : kSteps) {
    SCOPED_TRACE("step " + std::to_string(++number));
    Deliver(step.key, step.with, {}, step.held);
    EXPECT_EQ(FocusName(), step.focus);
    EXPECT_EQ(window_.Header().Title().toStdString(), step.title);
    EXPECT_EQ(TheForm().SSTabTRDSettings.Index(), step.tab);
  }
}

TEST_F(KeyboardTest, AFieldIsTypedPutBackWrittenAndCountedByKeysAlone) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(OpenByKeys("Device Identification"));
  while (FocusName() != "txtParameter(0)") Deliver(Qt::Key_Tab);
  EXPECT_EQ(qobject_cast<QLineEdit*>(QApplication::focusWidget())->selectedText(), QStringLiteral("HTR60-1"));
  Deliver(Qt::Key_C, kCtrl);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("HTR60-1"));
  Type("A");
  EXPECT_EQ(TheForm().txtParameter(0).Text(), "A");
  Deliver(Qt::Key_Escape);
  EXPECT_EQ(TheForm().txtParameter(0).Text(), "HTR60-1");
  EXPECT_EQ(window_.Actions().Footer(), QString());
  Type("B");
  EXPECT_EQ(TheForm().txtParameter(0).Text(), "B") << "what was put back is selected";
  Deliver(Qt::Key_F6);
  EXPECT_EQ(FocusName(), "cmdWriteParameter");
  for (const int key : {Qt::Key_Return, Qt::Key_Enter}) Deliver(key);
  EXPECT_FALSE(TheForm().At(TimerId::TimerReadAfterWrite).Enabled());
  Deliver(Qt::Key_Space, kNo, QStringLiteral(" "), true);
  EXPECT_FALSE(TheForm().At(TimerId::TimerReadAfterWrite).Enabled()) << "held down since before";
  Deliver(Qt::Key_Space, kNo, QStringLiteral(" "));
  EXPECT_TRUE(TheForm().At(TimerId::TimerReadAfterWrite).Enabled());
  ASSERT_TRUE(WaitFor([&] { return window_.Actions().Footer() == QStringLiteral("all confirmed"); }));
  while (FocusName() != "footer") Deliver(Qt::Key_Tab);
  Deliver(Qt::Key_Space, kNo, QStringLiteral(" "));
  EXPECT_EQ(FocusName(), "txtParameter(0)");
  Type("C");
  Deliver(Qt::Key_W, kAlt);
  EXPECT_TRUE(TheForm().At(TimerId::TimerReadAfterWrite).Enabled());
  EXPECT_EQ(FocusName(), "txtParameter(0)");
}

TEST_F(KeyboardTest, AListIsOpenedMovedAndTakenByKeysAlone) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(OpenByKeys("Primary Value Type"));
  while (FocusName() != "cmbPVType") Deliver(Qt::Key_Tab);
  auto* field = qobject_cast<ChoiceField*>(QApplication::focusWidget());
  ASSERT_NE(field, nullptr);
  const auto open = [&] { return field->Popup() != nullptr && field->Popup()->isVisible(); };
  const std::pair<int, Qt::KeyboardModifiers> kOpening[] = {
      {Qt::Key_F4, kNo}, {Qt::Key_Down, kAlt}, {Qt::Key_Space, kNo}};
  for (const auto& [key, with] : kOpening) {
    Deliver(key, with);
    EXPECT_TRUE(open()) << key;
    Deliver(Qt::Key_Escape);
    EXPECT_FALSE(open()) << key;
  }
  Deliver(Qt::Key_L, kNo, QStringLiteral("l"));
  ASSERT_TRUE(open());
  EXPECT_EQ(field->Popup()->List()->currentIndex().data().toString(), QStringLiteral("Level"));
  EXPECT_EQ(TheForm().cmbPVType.Text(), "Pressure");
  Deliver(Qt::Key_Return);
  EXPECT_FALSE(open());
  EXPECT_EQ(TheForm().cmbPVType.Text(), "Level");
  EXPECT_EQ(FocusName(), "cmbPVType");
  Deliver(Qt::Key_Escape);
  EXPECT_EQ(TheForm().cmbPVType.Text(), "Pressure");
}

TEST_F(KeyboardTest, F1ShowsThePageAndWhatIsNotedOfTheFieldOnceWhileItIsHeld) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(OpenByKeys("Device Identification"));
  while (FocusName() != "txtParameter(0)") Deliver(Qt::Key_Tab);
  int boxes = 0;
  QTimer::singleShot(50, &window_, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    ++boxes;
    EXPECT_EQ(box->text(), QStringLiteral("Device Identification"));
    EXPECT_TRUE(box->informativeText().contains(QStringLiteral("\n\n")));
    box->close();
  });
  Deliver(Qt::Key_F1, kNo, {}, true);
  Deliver(Qt::Key_F1);
  EXPECT_EQ(boxes, 1);
  EXPECT_EQ(NameOfSpot(window_.focusWidget()), "txtParameter(0)");
}

TEST_F(KeyboardTest, AKeyHeldDownIsOnePress) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(OpenByKeys("Device Identification"));
  const auto held = [&](int key, Qt::KeyboardModifiers with = kNo) {
    Control().RequestCode = "none";
    for (int i = 0; i < 3; ++i) Deliver(key, with, {}, true);
    return Control().RequestCode;
  };
  for (const int key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_F5}) EXPECT_EQ(held(key), "none") << key;
  EXPECT_EQ(held(Qt::Key_W, kAlt), "none");
  EXPECT_FALSE(TheForm().At(TimerId::TimerReadAfterWrite).Enabled());
  while (FocusName() != "cmdSensorDetails") Deliver(Qt::Key_Tab);
  EXPECT_EQ(held(Qt::Key_Return), "none");
  Deliver(Qt::Key_Return);
  ASSERT_TRUE(Settle());
  EXPECT_EQ(window_.Header().Title(), QStringLiteral("Sensor Details"));
  held(Qt::Key_Left, kAlt);
  EXPECT_EQ(window_.Header().Title(), QStringLiteral("Sensor Details"));
}

TEST_F(KeyboardTest, AMenuAndAFieldsOwnMenuHaveTheirKeys) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(OpenByKeys("Device Identification"));
  while (FocusName() != "txtParameter(0)") Deliver(Qt::Key_Tab);
  Type("A");
  QMenu menu(QApplication::focusWidget());
  menu.addAction(QStringLiteral("One"));
  menu.popup({});
  QTest::keyClick(&menu, Qt::Key_Escape);
  EXPECT_FALSE(menu.isVisible());
  EXPECT_EQ(TheForm().txtParameter(0).Text(), "A") << "Esc was the menu's";
}

/// The device takes its time.
class SlowKeyboardTest : public KeyboardTest {
 protected:
  SlowKeyboardTest() : KeyboardTest(Slow()) {}
  static sim::Settings Slow() {
    sim::Settings settings;
    settings.timing.answerMs = 700;
    return settings;
  }
};

TEST_F(SlowKeyboardTest, AnAnswerLeavesTheTextOfAnOpenedFieldSelected) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(OpenByKeys("Pressure/Flow"));
  Deliver(Qt::Key_Tab, kCtrl);
  const char letter = LetterOf(id::cmdTrdOutScale);
  ASSERT_NE(letter, '\0');
  Deliver(letter, kAlt);
  EXPECT_EQ(window_.Header().Title(), QStringLiteral("Transducer Output Scale"));
  auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_NE(field, nullptr);
  ASSERT_EQ(field->text(), QString()) << "its answer is still to come";
  ASSERT_TRUE(Settle());
  ASSERT_FALSE(field->text().isEmpty());
  EXPECT_EQ(field->selectedText(), field->text());
  Type("20");
  EXPECT_EQ(field->text(), QStringLiteral("20"));
}

// ---- on the small control

TEST_F(PageAreaTest, LabelsTakeTheFocusAsOneAndArrowsMoveAmongThem) {
  for (const int number : {0, 1, 2}) {
    control_->form.At(number == 0   ? id::lbArray(313)
                      : number == 1 ? id::lbArray(314)
                                    : id::lbArray(315))
        .SetText(std::to_string(number) + ".500");
  }
  Tab(3);
  area_.findChild<PageTabs*>()->setFocus(Qt::MouseFocusReason);
  const std::pair<int, const char*> kSteps[] = {
      {Qt::Key_Tab, "txtParameter(46)"}, {Qt::Key_Tab, "lbArray(313)"},     {Qt::Key_Down, "lbArray(314)"},
      {Qt::Key_Right, "lbArray(315)"},   {Qt::Key_Down, "lbArray(315)"},    {Qt::Key_Up, "lbArray(314)"},
      {Qt::Key_Tab, "txtParameter(5)"},  {Qt::Key_Backtab, "lbArray(314)"},
  };
  for (const auto& [key, name] : kSteps) {
    SendKey(*QApplication::focusWidget(), key, key == Qt::Key_Backtab ? kShift : kNo);
    Turn();
    EXPECT_EQ(FocusName(), name);
  }
  EXPECT_EQ(Entry(id::lbArray(314))->selectedText(), QStringLiteral("1.500"));
  QApplication::clipboard()->clear();
  Entry(id::lbArray(314))->deselect();
  SendKey(*QApplication::focusWidget(), Qt::Key_C, kCtrl);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("1.500"));
}

TEST_F(PageAreaTest, EnterInTheFieldOfACodePressesItsButtonOnce) {
  Tab(3);
  Entry(id::txtParameter(5))->setFocus();
  SendText(*Entry(id::txtParameter(5)), QStringLiteral("1234"));
  QApplication::clipboard()->clear();
  SendKey(*QApplication::focusWidget(), Qt::Key_C, kCtrl);
  EXPECT_EQ(QApplication::clipboard()->text(), QString());
  QTest::simulateEvent(QApplication::focusWidget(), true, Qt::Key_Return, kNo, {}, true);
  Turn();
  EXPECT_EQ(area_.Title(), QStringLiteral("First"));
  SendKey(*QApplication::focusWidget(), Qt::Key_Return);
  Turn();
  EXPECT_EQ(area_.Title(), QStringLiteral("Second"));
  EXPECT_EQ(FocusName(), "txtParameter(21)");
}

TEST_F(PageAreaTest, AnEditedFieldKeepsCursorAndSelectionAnUneditedOneIsSelected) {
  control_->form.txtParameter(37).SetText("12.500");
  Turn();
  TextEntry* entry = Entry(id::txtParameter(37));
  entry->setFocus(Qt::MouseFocusReason);
  EXPECT_FALSE(entry->hasSelectedText()) << "the pointer selects nothing";
  entry->setCursorPosition(2);
  control_->form.txtParameter(37).SetText("13.500");
  Turn();
  EXPECT_EQ(entry->selectedText(), QStringLiteral("13.500"));
  entry->setCursorPosition(2);
  SendText(*entry, QStringLiteral("9"));
  entry->setSelection(1, 2);
  control_->form.txtParameter(37).SetText("77.250");
  Turn();
  EXPECT_EQ(entry->selectedText(), QStringLiteral("7.")) << "edited";
  control_->form.txtParameter(37).SetText("55");
  Turn();
  EXPECT_EQ(entry->selectedText(), QStringLiteral("5")) << "as far as the text allows";
}

TEST_F(PageAreaTest, ANumberThatIsReadAndDoesNotFitIsNeverCut) {
  const std::string number(60, '7');
  control_->form.txtParameter(60).SetText(number);
  Turn();
  TextEntry* entry = Entry(id::txtParameter(60));
  EXPECT_EQ(entry->text().toStdString(), number);
  EXPECT_EQ(Cell(id::txtParameter(60)).ToolTip().toStdString(), number);
  QAccessibleInterface* access = QAccessible::queryAccessibleInterface(entry);
  EXPECT_EQ(access->text(QAccessible::Value).toStdString(), number);
  const QImage tooLong = entry->grab().toImage();
  control_->form.txtParameter(60).SetText(std::string(70, '1'));
  Turn();
  EXPECT_EQ(entry->grab().toImage(), tooLong) << "whatever the number is, its place is filled by the same signs";
  control_->form.txtParameter(60).SetText("7");
  Turn();
  EXPECT_NE(entry->grab().toImage(), tooLong);
  // One that is typed scrolls instead.
  control_->form.txtParameter(37).SetText(number);
  Turn();
  const QImage typed = Entry(id::txtParameter(37))->grab().toImage();
  control_->form.txtParameter(37).SetText(std::string(70, '1'));
  Turn();
  EXPECT_NE(Entry(id::txtParameter(37))->grab().toImage(), typed);
}

TEST_F(PageAreaTest, AListsNameIsItsNameAndItsValueTheTextShown) {
  control_->form.cmbPVSimulateEnable.SetText("Enable");
  Turn();
  QAccessibleInterface* list = QAccessible::queryAccessibleInterface(Cell(id::cmbPVSimulateEnable).Widget());
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->role(), QAccessible::ComboBox);
  EXPECT_EQ(list->text(QAccessible::Name), QStringLiteral("Numbers, Mode"));
  EXPECT_EQ(list->text(QAccessible::Value), QStringLiteral("Enable"));
  EXPECT_FALSE(list->state().expanded);
  list->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  EXPECT_TRUE(list->state().expanded);
}

}  // namespace
}  // namespace htr60::desktop

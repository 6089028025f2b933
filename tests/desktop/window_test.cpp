#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QLineEdit>
#include <QMessageBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QSplitter>
#include <QTest>
#include <QToolButton>
#include <utility>

#include "desktop/options.h"
#include "desktop/page/choice_field.h"
#include "desktop_test.h"

namespace htr60::desktop {
namespace {

using WindowTest = DesktopTest;

QMessageBox* OpenBox() { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }

TEST_F(WindowTest, StartsWithTheIdentificationPageUnread) {
  EXPECT_EQ(window_.windowTitle(), QStringLiteral("HTR60 - SIMULATED"));
  EXPECT_EQ(window_.Header().Title(), QStringLiteral("Device Identification"));
  EXPECT_EQ(window_.Header().DataText(), QStringLiteral("Not read since opened"));
  for (const QString& text : window_.Identification().Texts()) EXPECT_TRUE(text.endsWith(QLatin1String("not read")));
  EXPECT_FALSE(window_.Actions().Back()->isEnabled());
  EXPECT_FALSE(window_.Actions().Save()->isEnabled());
  EXPECT_TRUE(window_.Actions().Write()->isEnabled());
  EXPECT_EQ(window_.Actions().Save()->toolTip(),
            QStringLiteral("The device keeps every value: there is nothing to save here."));
  // The start reads by itself two seconds later.
  ASSERT_TRUE(Settle());
  EXPECT_TRUE(window_.Header().DataText().startsWith(QLatin1String("Read ")));
}

TEST_F(WindowTest, IdentificationShowsWhatTheProgramSetAndNotWhatIsTyped) {
  ASSERT_TRUE(Connect());
  const QStringList texts = window_.Identification().Texts();
  EXPECT_EQ(texts, QStringList({QStringLiteral("HTR60-1"), QStringLiteral("Lorvane Process Instruments"),
                                QStringLiteral("SN 06000001"), QStringLiteral("Firmware 1.09"),
                                QStringLiteral("Pressure"), QStringLiteral("Write Unlocked")}));
  EXPECT_EQ(window_.windowTitle(), QStringLiteral("HTR60-1 - HTR60 - SIMULATED"));
  auto* tag = Find<QLineEdit>(id::txtParameter(0));
  ASSERT_NE(tag, nullptr);
  tag->setFocus();
  tag->selectAll();
  PressKey(Qt::Key_A, Qt::NoModifier, QStringLiteral("A"));
  QApplication::processEvents();
  EXPECT_EQ(TheForm().txtParameter(0).Text(), "A");
  EXPECT_EQ(window_.Identification().Texts(), texts);
  EXPECT_EQ(window_.Actions().Footer(), QStringLiteral("1 not written"));
  window_.Actions().Write()->click();
  ASSERT_TRUE(WaitFor([&] { return window_.Identification().Tag() == QLatin1String("A"); }));
  EXPECT_EQ(window_.windowTitle(), QStringLiteral("A - HTR60 - SIMULATED"));
  EXPECT_EQ(window_.Actions().Footer(), QStringLiteral("all confirmed"));
}

TEST_F(WindowTest, ArrowsMoveTheSelectionAloneAndEnterActivates) {
  ASSERT_TRUE(Open("Device Identification"));
  window_.Tree().setFocus();
  const std::string code = Control().RequestCode;
  PressKey(Qt::Key_Down);
  QApplication::processEvents();
  EXPECT_NE(window_.Tree().currentItem()->text(0), QStringLiteral("Device Identification"));
  EXPECT_EQ(Control().RequestCode, code);
  EXPECT_EQ(Control().CurrentPage, "Identification");
  // F5 is the node activated last, wherever the selection stands.
  Control().RequestCode = "none";
  PressKey(Qt::Key_F5);
  EXPECT_EQ(Control().RequestCode, code);
  ASSERT_TRUE(window_.Tree().Press(QStringLiteral("Observe")));
  EXPECT_EQ(Control().CurrentPage, "Observe");
  EXPECT_FALSE(TheForm().cmdWriteParameter.Enabled());
  QApplication::processEvents();
  EXPECT_FALSE(window_.Actions().Write()->isEnabled());
  EXPECT_TRUE(window_.Tree().hasFocus());
  window_.Tree().setCurrentItem(window_.Tree().topLevelItem(2));
  PressKey(Qt::Key_Return);
  EXPECT_EQ(Control().CurrentPage, "Diagnosis");
}

TEST_F(WindowTest, ATypeChangeGivesATreeWithAllNodesOpen) {
  ASSERT_TRUE(Connect());
  const auto find = [&](const char* text) {
    const auto found = window_.Tree().findItems(QLatin1String(text), Qt::MatchExactly | Qt::MatchRecursive);
    return found.isEmpty() ? nullptr : found.first();
  };
  ASSERT_NE(find("Pressure/Flow"), nullptr);
  find("Observe")->setExpanded(false);
  ASSERT_TRUE(Open("Primary Value Type"));
  EXPECT_FALSE(find("Observe")->isExpanded());  // no rebuild: what the operator closed stays closed
  Control().Pick(id::cmbPVType, 2);
  window_.Actions().Write()->click();
  ASSERT_TRUE(WaitFor([&] { return find("Level") != nullptr; }));
  EXPECT_EQ(find("Pressure/Flow"), nullptr);
  for (const char* node : {"OnLine Parameterize", "Observe", "Blocks", "Primary Value Type", "Level"}) {
    EXPECT_TRUE(find(node)->isExpanded()) << node;
  }
  EXPECT_EQ(find("Calibration")->parent(), find("Level"));
  EXPECT_FALSE(find("Level")->icon(0).isNull());
}

TEST_F(WindowTest, BackLeadsToTheButtonThatOpenedThePage) {
  ASSERT_TRUE(Open("Device Identification"));
  auto* details = Find<QAbstractButton>(id::cmdSensorDetails);
  ASSERT_NE(details, nullptr);
  details->click();
  ASSERT_TRUE(Settle());
  EXPECT_EQ(window_.Header().Title(), QStringLiteral("Sensor Details"));
  EXPECT_TRUE(window_.Actions().Back()->isEnabled());
  window_.Actions().Back()->click();
  ASSERT_TRUE(WaitFor([&] { return details->hasFocus(); }));
  EXPECT_EQ(window_.Header().Title(), QStringLiteral("Device Identification"));
  EXPECT_TRUE(window_.Header().DataText().startsWith(QLatin1String("As read ")));
  EXPECT_FALSE(window_.Actions().Back()->isEnabled());
}

TEST_F(WindowTest, TabGoesFromTreeToPageToWriteSaveBackAndToTheTree) {
  ASSERT_TRUE(Open("Device Identification"));
  Find<QAbstractButton>(id::cmdSensorDetails)->click();
  ASSERT_TRUE(Settle());
  TheForm().cmdSave.SetEnabled(true);
  TheForm().cmdWriteParameter.SetEnabled(true);
  QApplication::processEvents();
  std::vector<QWidget*> stops;
  window_.Tree().setFocus();
  for (int i = 0; i < 60; ++i) {
    PressKey(Qt::Key_Tab);
    stops.push_back(QApplication::focusWidget());
    if (stops.back() == &window_.Tree()) break;
  }
  ASSERT_GT(stops.size(), 5U);
  const std::vector<QWidget*> last(stops.end() - 4, stops.end());
  EXPECT_EQ(last, (std::vector<QWidget*>{window_.Actions().Write(), window_.Actions().Save(), window_.Actions().Back(),
                                         &window_.Tree()}));
  for (std::size_t i = 0; i + 4 < stops.size(); ++i) {
    EXPECT_TRUE(window_.Page().isAncestorOf(stops[i])) << stops[i]->objectName().toStdString();
  }
}

TEST_F(WindowTest, F6GoesRoundTreePageAndActions) {
  ASSERT_TRUE(Open("Device Identification"));
  window_.Tree().setFocus();
  PressKey(Qt::Key_F6);
  EXPECT_TRUE(window_.Page().isAncestorOf(QApplication::focusWidget()));
  PressKey(Qt::Key_F6);
  EXPECT_TRUE(window_.Actions().Write()->hasFocus());
  PressKey(Qt::Key_F6);
  EXPECT_TRUE(window_.Tree().hasFocus());
  PressKey(Qt::Key_F6, Qt::ShiftModifier);
  EXPECT_TRUE(window_.Actions().Write()->hasFocus());
}

TEST_F(WindowTest, EnterNeverWritesAndSpaceDoes) {
  ASSERT_TRUE(Connect());
  window_.Actions().Write()->setFocus();
  PressKey(Qt::Key_Return);
  PressKey(Qt::Key_Enter);
  EXPECT_EQ(Panel(4), "");
  EXPECT_FALSE(TheForm().At(TimerId::TimerReadAfterWrite).Enabled());
  PressKey(Qt::Key_Space);
  EXPECT_EQ(Panel(4), "Writing Xmtr Data...");
  EXPECT_TRUE(TheForm().At(TimerId::TimerReadAfterWrite).Enabled());
}

TEST_F(WindowTest, WithoutConnectionABoxIsShownAndNoPage) {
  ASSERT_TRUE(WaitFor([&] { return Panel(1) == "Connected"; }));
  host_.Transmitter().SetOffline(true);
  ASSERT_TRUE(WaitFor([&] { return Panel(1) == "Disconnected"; }));
  QString text;
  int answers = 0;
  QTimer::singleShot(50, &window_, [&] {
    QMessageBox* box = OpenBox();
    ASSERT_NE(box, nullptr);
    text = box->text() + QLatin1Char('|') + box->windowTitle();
    EXPECT_EQ(box->icon(), QMessageBox::Information);
    ++answers;
    box->close();
  });
  window_.Tree().Press(QStringLiteral("Observe"));
  EXPECT_EQ(answers, 1);
  EXPECT_EQ(text, QStringLiteral("Device is Disconnected!|Information"));
  QApplication::processEvents();
  EXPECT_EQ(window_.Header().Title(), QString());
  EXPECT_EQ(window_.Tree().currentItem()->text(0), QStringLiteral("Blocks"));
  EXPECT_FALSE(window_.Actions().Write()->isEnabled());
  EXPECT_TRUE(window_.Actions().Save()->isEnabled());
}

TEST_F(WindowTest, YesNoBoxesStandOnNoAndTimersGoOnBeforeThem) {
  const struct {
    const char* name;
    std::function<void(QMessageBox&)> answer;
    bool yes;
  } kCases[] = {
      {"Esc",
       [](QMessageBox& box) {
         PressKey(Qt::Key_Escape);
         Q_UNUSED(box);
       },
       false},
      {"closed", [](QMessageBox& box) { box.close(); }, false},
      {"Enter",
       [](QMessageBox& box) {
         PressKey(Qt::Key_Return);
         Q_UNUSED(box);
       },
       false},
      {"Yes", [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); }, true},
  };
  for (const auto& one : kCases) {
    SCOPED_TRACE(one.name);
    QTimer::singleShot(50, &window_, [&] {
      QMessageBox* box = OpenBox();
      ASSERT_NE(box, nullptr);
      EXPECT_EQ(QApplication::focusWidget(), box->button(QMessageBox::No));
      one.answer(*box);
    });
    EXPECT_EQ(Control().AskYesNo("Sure?", "Question"), one.yes);
  }
  // The start's reads are sent and answered while a box is open.
  QTimer::singleShot(50, &window_, [&] {
    EXPECT_TRUE(WaitFor([&] { return window_.Identification().Tag() == QLatin1String("HTR60-1"); }));
    OpenBox()->close();
  });
  Control().ShowBox("Wait", "Information");
  EXPECT_EQ(Panel(1), "Connected");
  EXPECT_EQ(window_.Identification().Tag(), QStringLiteral("HTR60-1"));
}

TEST_F(WindowTest, ClosingWithTextsNotWrittenAsksFirst) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Device Identification"));
  presentation::Presentation& presented = window_.Presented();
  presented.Type(id::txtParameter(0), "A");
  auto* tag = Find<QLineEdit>(id::txtParameter(0));
  tag->setFocus();
  EXPECT_FALSE(window_.close());
  PageBar& bar = window_.Page().Bar();
  ASSERT_TRUE(WaitFor([&] { return bar.isVisible(); }));
  EXPECT_EQ(bar.Text(), QStringLiteral("1 not written"));
  EXPECT_EQ(QApplication::focusWidget(), bar.Buttons()[0]);
  bar.Buttons()[0]->click();
  ASSERT_TRUE(WaitFor([&] { return !bar.isVisible(); }));
  EXPECT_TRUE(window_.isVisible());
  EXPECT_TRUE(tag->hasFocus());
  EXPECT_FALSE(window_.close());
  ASSERT_TRUE(WaitFor([&] { return bar.isVisible(); }));
  bar.Buttons()[1]->click();
  EXPECT_FALSE(window_.isVisible());
}

TEST_F(WindowTest, TheTreeMarksTheOpenNodeAndThoseNotWritten) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Device Identification"));
  const auto find = [&](const char* text) {
    return window_.Tree().findItems(QLatin1String(text), Qt::MatchExactly | Qt::MatchRecursive).first();
  };
  const auto words = [&](const char* text) { return find(text)->data(0, Qt::AccessibleDescriptionRole).toString(); };
  const auto picture = [&](const char* text) { return find(text)->icon(0).pixmap(16).toImage(); };
  const QImage closed = picture("Pressure/Flow");
  window_.Presented().Type(id::txtParameter(0), "A");
  ASSERT_TRUE(WaitFor([&] { return words("Device Identification") == QLatin1String("open page, not written"); }));
  ASSERT_TRUE(Open("Pressure/Flow"));
  EXPECT_EQ(words("Pressure/Flow"), QStringLiteral("open page"));
  EXPECT_EQ(words("Device Identification"), QStringLiteral("not written"));
  EXPECT_NE(picture("Pressure/Flow"), closed);
  const QImage open = picture("Pressure/Flow");
  window_.Tree().setCurrentItem(find("Observe"));
  EXPECT_EQ(picture("Pressure/Flow"), open) << "the cursor is another mark";
  window_.Actions().Write()->setFocus();
  ASSERT_TRUE(Open("Primary Value Type"));
  Control().Pick(id::cmbPVType, 2);
  window_.Tree().setCurrentItem(find("LCD Config"));
  window_.Actions().Write()->click();
  ASSERT_TRUE(WaitFor([&] {
    return !window_.Tree().findItems(QStringLiteral("Level"), Qt::MatchExactly | Qt::MatchRecursive).isEmpty();
  }));
  EXPECT_EQ(window_.Tree().currentItem(), find("LCD Config")) << "the cursor stays by its text";
  EXPECT_EQ(words("Primary Value Type"), QStringLiteral("open page"));
}

TEST_F(WindowTest, TheTreeKeepsItsScrollPlaceThroughARebuild) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Primary Value Type"));
  window_.setMinimumSize(600, 260);
  window_.resize(900, 280);
  QApplication::processEvents();
  TreePanel& tree = window_.Tree();
  ASSERT_GT(tree.verticalScrollBar()->maximum(), 2);
  const auto top = [&] { return tree.itemAt(0, 0)->text(0); };
  const auto has = [&](const char* text) {
    return !tree.findItems(QLatin1String(text), Qt::MatchExactly | Qt::MatchRecursive).isEmpty();
  };
  const auto choose = [&](int type, const char* node) {
    Control().Pick(id::cmbPVType, type);
    window_.Actions().Write()->click();
    const bool built = WaitFor([&] { return has(node); });
    QApplication::processEvents();
    return built;
  };
  tree.verticalScrollBar()->setValue(2);
  ASSERT_EQ(top(), QStringLiteral("Primary Value Type"));
  ASSERT_TRUE(choose(2, "Level"));
  EXPECT_EQ(top(), QStringLiteral("Primary Value Type"));
  tree.verticalScrollBar()->setValue(3);
  ASSERT_EQ(top(), QStringLiteral("Level"));
  ASSERT_TRUE(choose(0, "Pressure/Flow"));
  EXPECT_EQ(top(), QStringLiteral("Pressure/Flow")) << "in the place of the node that is gone";
}

TEST_F(WindowTest, TellsAssistiveTechnologyOfTheConnectionAndNotOfPolling) {
  auto* live = window_.findChild<QWidget*>(QStringLiteral("liveRegion"));
  ASSERT_NE(live, nullptr);
  const auto told = [&] { return QAccessible::queryAccessibleInterface(live); };
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Pressure/Flow"));
  EXPECT_EQ(told()->text(QAccessible::Name), QStringLiteral("Connected"));
  host_.Transmitter().SetOffline(true);
  EXPECT_TRUE(WaitFor([&] { return told()->text(QAccessible::Name) == QLatin1String("Disconnected"); }));
}

TEST_F(WindowTest, APressOnTheHealthLeadsToWhereItWasRead) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Pressure/Flow"));
  auto* health = window_.findChild<QToolButton*>(QStringLiteral("health"));
  ASSERT_NE(health, nullptr);
  if (window_.Presented().Shown().health == presentation::HealthState::kNotRead) {
    EXPECT_EQ(health->toolTip(), QString());
    Control().UpdateUI(4500, "<A><P tag='SensorDiag' value='0000'/></A>");
  }
  ASSERT_TRUE(WaitFor([&] { return health->toolTip().endsWith(QLatin1String(" on Pressure/Flow.")); }));
  ASSERT_TRUE(Open("Device Identification"));
  health->click();
  EXPECT_EQ(Control().LastActivated(), "Pressure/Flow");
}

TEST_F(WindowTest, FitsASmallScreenWithTheActionAreaWhole) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Device Identification"));
  const QSize wide(1920, 1040);
  window_.FitTo(wide);
  EXPECT_EQ(window_.size(), QSize(Pixels(window_, 1100), Pixels(window_, 720))) << "not larger than it was";
  const auto* scroll = window_.findChild<QScrollArea*>(QStringLiteral("pageScroll"));
  for (const QSize room : {QSize(960, 520), QSize(640, 400)}) {
    SCOPED_TRACE(room.width());
    window_.FitTo(room);
    QApplication::processEvents();
    EXPECT_LE(window_.width(), room.width());
    EXPECT_LT(window_.height(), room.height()) << "room for the title";
    const ActionArea& actions = window_.Actions();
    const QRect shown(actions.mapTo(&window_, QPoint()), actions.size());
    EXPECT_TRUE(window_.rect().contains(shown));
    for (const QPushButton* button : {actions.Back(), actions.Revert(), actions.Save(), actions.Write()}) {
      EXPECT_TRUE(actions.rect().contains(button->geometry()));
      EXPECT_GE(button->width(), button->minimumSizeHint().width());
    }
    // What does not fit can be scrolled to.
    const QSize hidden = scroll->widget()->size() - scroll->viewport()->size();
    EXPECT_EQ(scroll->horizontalScrollBar()->maximum(), std::max(0, hidden.width()));
  }
  EXPECT_GT(scroll->horizontalScrollBar()->maximum(), 0);
  auto* list = Find<ChoiceField>(id::cmbWriteProtection);
  ASSERT_NE(list, nullptr);
  while (window_.Presented().Keys().At() != presentation::Spot(ControlId(id::cmbWriteProtection))) {
    PressKey(Qt::Key_Tab);
  }
  QApplication::processEvents();
  EXPECT_FALSE(list->visibleRegion().isEmpty()) << "the keyboard brings it into sight";
}

TEST(WindowPreset, IsNamedInStripAndMenu) {
  SteppedClock clock;
  DesktopHost host(clock, LoadSettings({.preset = QStringLiteral("tank")}), QStringLiteral("tank"));
  MainWindow window(host, MainWindow::Places::kFresh);
  EXPECT_EQ(window.findChild<QLabel*>(QStringLiteral("simulated"))->text(), QStringLiteral("SIMULATED: tank"));
  QStringList listed;
  QStringList checked;
  for (const QAction* action : window.findChildren<QAction*>()) {
    const auto names = sim::PresetNames();
    if (std::find(names.begin(), names.end(), ToUtf8(action->text())) == names.end()) continue;
    listed << action->text();
    if (action->isChecked()) checked << action->text();
  }
  EXPECT_EQ(listed.size(), static_cast<qsizetype>(sim::PresetNames().size()));
  EXPECT_EQ(checked, QStringList(QStringLiteral("tank")));
}

TEST(WindowPlaces, AreKeptFromRunToRun) {
  QSettings().clear();
  SteppedClock clock;
  DesktopHost host(clock, {});
  QSize size;
  QList<int> split;
  {
    MainWindow window(host, MainWindow::Places::kKept);
    EXPECT_EQ(window.size(), QSize(Pixels(window, 1100), Pixels(window, 720)));
    EXPECT_EQ(window.minimumSize(), QSize(Pixels(window, 900), Pixels(window, 600)));
    window.show();
    window.resize(1010, 650);
    window.findChild<QSplitter*>()->setSizes({333, 677});
    QApplication::processEvents();
    size = window.size();
    split = window.findChild<QSplitter*>()->sizes();
    window.close();
  }
  MainWindow again(host, MainWindow::Places::kKept);
  again.show();
  QApplication::processEvents();
  EXPECT_EQ(again.size(), size);
  EXPECT_EQ(again.findChild<QSplitter*>()->sizes(), split);
  MainWindow fresh(host, MainWindow::Places::kFresh);
  EXPECT_NE(fresh.size(), size);
}

}  // namespace
}  // namespace htr60::desktop

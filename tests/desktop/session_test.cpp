#include "desktop/window/session.h"

#include <QMessageBox>

#include "desktop/options.h"
#include "desktop/start.h"
#include "desktop_test.h"

namespace htr60::desktop {
namespace {

QMessageBox* OpenBox() { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }

int OpenBoxes() {
  const QWidgetList windows = QApplication::topLevelWidgets();
  return static_cast<int>(std::count_if(windows.begin(), windows.end(), [](const QWidget* window) {
    return window->isVisible() && qobject_cast<const QMessageBox*>(window) != nullptr;
  }));
}

class SessionsTest : public testing::Test {
 protected:
  SessionsTest() { sessions_.Begin({}, {}); }
  UserCntrl& Control() { return sessions_.Now()->host.Control(); }
  void Want(const char* preset) { Q_EMIT sessions_.Now()->window.TransmitterWanted(QLatin1String(preset)); }
  std::string Type() { return std::string(sessions_.Now()->host.Control().form.cmbPVType.Text()); }

  Sessions sessions_{MainWindow::Places::kFresh};
};

TEST_F(SessionsTest, AnotherTransmitterComesInTheSamePlaceAndTheProgramGoesOn) {
  const Session* first = sessions_.Now();
  sessions_.Now()->window.resize(1000, 650);
  Want("level");
  EXPECT_EQ(sessions_.Now(), first) << "not within the signal: its sender goes with the session";
  QTimer look;
  look.callOnTimeout([&] {
    if (Type() == "Level") QApplication::exit(7);
  });
  look.start(5);
  EXPECT_EQ(QApplication::exec(), 7) << "it ends with its last window";
  EXPECT_NE(sessions_.Now(), first);
  EXPECT_EQ(sessions_.Now()->window.size(), QSize(1000, 650));
  EXPECT_TRUE(sessions_.Now()->window.isVisible());
}

TEST_F(SessionsTest, ASessionStaysWhileABoxOfItIsOpen) {
  Session* const first = sessions_.Now();
  bool kept = false;
  bool answered = false;
  QTimer::singleShot(0, qApp, [&] {
    Want("level");
    QTimer::singleShot(200, qApp, [&] {
      kept = sessions_.Now() == first && OpenBox() != nullptr;
      OpenBox()->button(QMessageBox::Yes)->click();
    });
    answered = Control().AskYesNo("Sure?", "Question");
    first->host.Control().form.txtParameter(0).SetText("still there");
  });
  ASSERT_TRUE(WaitFor([&] { return sessions_.Now() != first; }));
  EXPECT_TRUE(kept);
  EXPECT_TRUE(answered);
}

TEST_F(SessionsTest, TheProgramEndsWhileABoxIsOpen) {
  for (const bool byWindow : {true, false}) {
    SCOPED_TRACE(byWindow);
    sessions_.Now()->window.show();
    bool answered = true;
    bool ended = false;
    QTimer::singleShot(0, qApp, [&] {
      answered = Control().AskYesNo("Sure?", "Question");
      ended = true;
    });
    QTimer::singleShot(100, qApp, [&] {
      EXPECT_NE(OpenBox(), nullptr);
      if (byWindow) {
        sessions_.Now()->window.close();
      } else {
        QApplication::quit();
      }
    });
    QTimer watch;
    watch.callOnTimeout([] { QApplication::exit(7); });
    watch.start(10'000);
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(ended);
    EXPECT_FALSE(answered) << "No, as when the box is closed";
    EXPECT_EQ(OpenBoxes(), 0);
  }
}

TEST(Start, WhatKeepsTheProgramFromStartingIsSaidInAWindow) {
  QString said;
  QTimer::singleShot(0, qApp, [&] {
    ASSERT_NE(OpenBox(), nullptr);
    said = OpenBox()->text();
    OpenBox()->close();
  });
  ShowComplaint(QStringLiteral("There are no colours '<b>'."));
  EXPECT_EQ(said, QStringLiteral("There are no colours '<b>'."));
  EXPECT_FALSE(WantsWindow()) << "no window where nobody can see it";
}

class BoxesTest : public DesktopTest {
 protected:
  BoxesTest() : DesktopTest(LoadSettings({.preset = QStringLiteral("level")})) {}
};

// Each settings answer of Pressure/Flow tells a level transmitter by a box that it is none.
TEST_F(BoxesTest, NoMoreThanEightStandOnEachOtherAndNothingIsLost) {
  ASSERT_TRUE(Connect());
  constexpr int kAnswers = 40;
  std::string result;
  for (int i = 0; i < kAnswers; ++i) host_.Transmitter().ReadRequest("5", "", result);
  const Timer& reread = TheForm().At(TimerId::TimerReadAfterWrite);
  int most = 0;
  int closed = 0;
  int before = 0;
  int quiet = 0;
  bool armed = false;
  bool waited = false;
  QTimer look;
  look.callOnTimeout([&] {
    QTimer::singleShot(0, &window_, [&] { clock_.Step(); });  // within it boxes open
    const int open = OpenBoxes();
    most = std::max(most, open);
    quiet = open == before ? quiet + 1 : 0;
    before = open;
    if (open == 0 || quiet < 10) return;
    quiet = 0;
    if (!std::exchange(armed, true)) return Control().StartTimer(TimerId::TimerReadAfterWrite, 1);
    if (closed == 0) waited = reread.Enabled();
    ++closed;
    OpenBox()->close();
  });
  look.start(2);
  ASSERT_TRUE(desktop::WaitFor([&] { return closed == kAnswers && OpenBoxes() == 0; }, 30'000)) << closed;
  EXPECT_EQ(most, DesktopHost::kMostBoxes);
  EXPECT_TRUE(waited) << "a timer waits with the answers";
  ASSERT_TRUE(WaitFor([&] { return !reread.Enabled(); }));
}

}  // namespace
}  // namespace htr60::desktop

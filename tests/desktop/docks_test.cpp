#include "desktop/docks/docks.h"

#include <QAction>
#include <QDockWidget>
#include <QLineEdit>
#include <QSettings>

#include "desktop/docks/record/record_dock.h"
#include "desktop_test.h"

namespace htr60::desktop {
namespace {

class DocksTest : public DesktopTest {
 protected:
  std::vector<QDockWidget*> All() {
    std::vector<QDockWidget*> docks;
    for (QDockWidget* dock : window_.findChildren<QDockWidget*>()) docks.push_back(dock);
    return docks;
  }
};

TEST_F(DocksTest, AreHiddenAtFirstAndOpenByTheMenuWithTheFocus) {
  ASSERT_EQ(All().size(), window_.Around().Actions().size());
  for (const QDockWidget* dock : All()) EXPECT_FALSE(dock->isVisible()) << dock->windowTitle().toStdString();
  for (QAction* action : window_.Around().Actions()) {
    SCOPED_TRACE(action->text().toStdString());
    EXPECT_FALSE(action->shortcut().isEmpty());
    action->trigger();
    QApplication::processEvents();
    QWidget* focus = QApplication::focusWidget();
    ASSERT_NE(focus, nullptr);
    const auto docks = All();
    const auto dock = std::find_if(docks.begin(), docks.end(),
                                   [&](const QDockWidget* one) { return one->windowTitle() == action->text(); });
    ASSERT_NE(dock, docks.end());
    EXPECT_TRUE((*dock)->isVisible());
    EXPECT_TRUE((*dock)->isAncestorOf(focus)) << focus->objectName().toStdString();
    // A turn leaves the focus there, and F6 leads back to the pages.
    host_.WantTurn();
    QApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget(), focus);
    PressKey(Qt::Key_F6);
    EXPECT_FALSE((*dock)->isAncestorOf(QApplication::focusWidget()));
    action->trigger();
    EXPECT_FALSE((*dock)->isVisible());
  }
}

TEST_F(DocksTest, TakeTheirOwnKeysAndLeaveThePageAsItIs) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Device Identification"));
  window_.Presented().Focus(id::txtParameter(0));
  const std::string tag(TheForm().TextOf(id::txtParameter(0)));
  window_.Around().Actions().front()->trigger();
  QApplication::processEvents();
  PressKey(Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
  PressKey(Qt::Key_Return);
  PressKey(Qt::Key_Escape);
  QApplication::processEvents();
  EXPECT_EQ(TheForm().TextOf(id::txtParameter(0)), tag);
}

TEST_F(DocksTest, FloatAndComeBackByTheKeyboard) {
  ASSERT_TRUE(Connect());
  Docks& docks = window_.Around();
  docks.Actions().at(3)->trigger();
  RecordDock& dock = docks.Calibrated();
  auto* name = dock.findChild<QLineEdit*>(QStringLiteral("operatorName"));
  QAction* floats = nullptr;
  for (QAction* action : window_.findChildren<QAction*>()) {
    if (action->shortcut() == QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F)) floats = action;
  }
  ASSERT_NE(floats, nullptr);
  for (const bool floating : {true, false, true}) {
    name->setFocus();
    floats->trigger();
    QApplication::processEvents();
    EXPECT_EQ(dock.isFloating(), floating);
    EXPECT_TRUE(dock.isVisible());
    EXPECT_EQ(QApplication::focusWidget(), name);
  }
  docks.Actions().at(3)->trigger();
  EXPECT_FALSE(dock.isVisible());
  docks.Actions().at(3)->trigger();
  QApplication::processEvents();
  EXPECT_TRUE(dock.isFloating()) << "where it was";
  EXPECT_EQ(dock.focusWidget(), name);
}

TEST_F(DocksTest, HaveNamesForAssistiveTechnology) {
  for (const QDockWidget* dock : All()) {
    EXPECT_FALSE(dock->accessibleName().isEmpty());
    EXPECT_FALSE(dock->objectName().isEmpty()) << "its place is kept by it";
    for (const QWidget* widget : dock->widget()->findChildren<QWidget*>()) {
      const bool stop = (widget->focusPolicy() & Qt::TabFocus) != 0;
      // The list of a box that is closed is a window of its own.
      if (!stop || widget->window() != &window_ || widget->objectName().startsWith(QLatin1String("qt_"))) continue;
      const auto* button = qobject_cast<const QAbstractButton*>(widget);
      const bool named = !widget->accessibleName().isEmpty() || (button != nullptr && !button->text().isEmpty());
      EXPECT_TRUE(named) << dock->windowTitle().toStdString() << ": " << widget->metaObject()->className() << " "
                         << widget->objectName().toStdString();
    }
  }
}

TEST(DockPlaces, AreKeptFromRunToRun) {
  QSettings().clear();
  SteppedClock clock;
  DesktopHost host(clock, {});
  const auto dockOf = [](MainWindow& window) {
    return window.findChild<QDockWidget*>(QStringLiteral("communicationDock"));
  };
  {
    MainWindow window(host, MainWindow::Places::kKept);
    window.show();
    window.Around().Actions().front()->trigger();
    QApplication::processEvents();
    dockOf(window)->setFloating(true);
    QApplication::processEvents();
    window.close();
  }
  {
    MainWindow window(host, MainWindow::Places::kKept);
    window.show();
    QApplication::processEvents();
    EXPECT_TRUE(dockOf(window)->isVisible());
    EXPECT_TRUE(dockOf(window)->isFloating());
    dockOf(window)->close();
    window.close();
  }
  MainWindow window(host, MainWindow::Places::kKept);
  window.show();
  QApplication::processEvents();
  EXPECT_FALSE(dockOf(window)->isVisible());
  MainWindow fresh(host, MainWindow::Places::kFresh);
  fresh.show();
  EXPECT_FALSE(dockOf(fresh)->isVisible());
  EXPECT_FALSE(dockOf(fresh)->isFloating());
}

}  // namespace
}  // namespace htr60::desktop

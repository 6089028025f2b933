#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <functional>

#include "desktop/page/page_area.h"
#include "desktop/page/page_bar.h"
#include "desktop/qt_text.h"
#include "desktop/window/action_area.h"
#include "desktop/window/desktop_host.h"
#include "desktop/window/identification_strip.h"
#include "desktop/window/keys.h"
#include "desktop/window/main_window.h"
#include "desktop/window/page_header.h"
#include "desktop/window/tree_panel.h"
#include "form/control_names.h"

namespace htr60::desktop {

/// Lets the event loop run until `done` or until it has taken too long.
inline bool WaitFor(const std::function<bool()>& done, int patienceMs = 10'000) {
  QEventLoop loop;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &loop, [&] {
    if (done()) loop.quit();
  });
  QTimer::singleShot(patienceMs, &loop, &QEventLoop::quit);
  look.start(5);
  loop.exec();
  return done();
}

/// Presses a key where the focus is.
inline void PressKey(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {}) {
  ASSERT_NE(QApplication::focusWidget(), nullptr);
  SendKey(*QApplication::focusWidget(), key, modifiers, text);
}

/// A window before a simulated transmitter, shown, whose time goes on only while something is waited for.
class DesktopTest : public testing::Test {
 protected:
  explicit DesktopTest(const sim::Settings& settings = {}, MainWindow::Places places = MainWindow::Places::kFresh)
      : host_(clock_, settings), window_(host_, places) {
    window_.show();
    window_.activateWindow();
    QApplication::processEvents();
  }

  /// Lets time pass until `done`, or until nothing more happens or it has taken too long.
  bool WaitFor(const std::function<bool()>& done, int patienceMs = 10'000) {
    const std::int64_t end = clock_.Now() + patienceMs;
    QApplication::processEvents();
    while (!done()) {
      if (clock_.Now() > end || !clock_.Step()) return false;
      QApplication::processEvents();
    }
    return true;
  }

  UserCntrl& Control() { return host_.Control(); }
  Form& TheForm() { return host_.Control().form; }
  bool Settle() {
    return WaitFor([this] { return window_.Presented().Settled(); });
  }
  /// The start's own reads have been answered: writes go out.
  bool Connect() {
    return WaitFor([this] { return Panel(1) == "Connected"; }) && Settle();
  }
  bool Open(const char* node) {
    QApplication::processEvents();
    return window_.Tree().Press(QLatin1String(node)) && Settle();
  }
  template <class Widget>
  Widget* Find(ControlId control) {
    for (Widget* widget : window_.findChildren<Widget*>(ToQt(NameOf(control)))) {
      if (widget->isVisible()) return widget;
    }
    return nullptr;
  }
  std::string Panel(int number) { return TheForm().statusBar.Panel(number).text; }

  SteppedClock clock_;
  DesktopHost host_;
  MainWindow window_;
};

}  // namespace htr60::desktop

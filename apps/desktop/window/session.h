#pragma once

#include <QTimer>
#include <memory>
#include <utility>

#include "desktop/window/desktop_host.h"
#include "desktop/window/main_window.h"

namespace htr60::desktop {

/// One transmitter with its window.
struct Session {
  Session(std::unique_ptr<Clock> time, const sim::Settings& settings, const QString& preset, MainWindow::Places places)
      : clock(std::move(time)), host(*clock, settings, preset), window(host, places) {}

  const std::unique_ptr<Clock> clock;
  DesktopHost host;
  MainWindow window;
};

/// The session of one run: another transmitter means another session. Made outside the event loop in which it runs.
class Sessions final : public QObject {
  Q_OBJECT

 public:
  explicit Sessions(MainWindow::Places places = MainWindow::Places::kKept);
  void Begin(const sim::Settings& settings, const QString& preset);
  Session* Now() { return now_.get(); }

 private:
  void FollowScreen(MainWindow& window);
  void Want(const QString& preset);
  void BeginWanted();

  const MainWindow::Places places_;
  const int outermost_;
  QString wanted_;
  QTimer look_;
  std::unique_ptr<Session> now_;
};

}  // namespace htr60::desktop

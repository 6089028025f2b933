#include "desktop/window/session.h"

#include <QScreen>
#include <QThread>
#include <QWindow>

#include "desktop/edge.h"
#include "desktop/options.h"

namespace htr60::desktop {
namespace {

constexpr int kLookAgainMs = 50;

int LoopLevel() { return QThread::currentThread()->loopLevel(); }

}  // namespace

void Sessions::FollowScreen(MainWindow& window) {
  if (places_ != MainWindow::Places::kKept) return;
  window.FitTo(window.screen()->availableSize());
  window.winId();  // the window of the system, which knows when it moves to another screen
  Connect(window.windowHandle(), &QWindow::screenChanged, &window, [&window](const QScreen* screen) {
    if (screen != nullptr) window.FitTo(screen->availableSize());
  });
}

Sessions::Sessions(MainWindow::Places places) : places_(places), outermost_(LoopLevel() + 1) {
  look_.setSingleShot(true);
  Connect(&look_, &QTimer::timeout, this, &Sessions::BeginWanted);
}

void Sessions::Begin(const sim::Settings& settings, const QString& preset) {
  auto next = std::make_unique<Session>(std::make_unique<RealClock>(), settings, preset, places_);
  Connect(&next->window, &MainWindow::TransmitterWanted, this, &Sessions::Want);
  if (now_ != nullptr) next->window.setGeometry(now_->window.geometry());
  FollowScreen(next->window);
  next->window.show();
  if (now_ != nullptr) now_->window.close();
  now_ = std::move(next);
}

void Sessions::Want(const QString& preset) {
  wanted_ = preset;
  look_.start(0);
}

// In an inner event loop, a box's or a menu's, handlers of the session that goes are still on the stack.
void Sessions::BeginWanted() {
  if (LoopLevel() > outermost_) return look_.start(kLookAgainMs);
  Begin(LoadSettings({.preset = wanted_}), wanted_);
}

}  // namespace htr60::desktop

#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <array>
#include <deque>
#include <memory>

#include "desktop/core.h"
#include "simulator/manager/manager.h"

class QWidget;

namespace htr60::desktop {

/// One control with all it needs: the simulated transmitter's DTM manager, timers, message boxes, icons, a watcher.
/// Everything runs in the thread that made it, out of the event loop. The ports outlive the control.
///
/// While `kMostBoxes` message boxes stand on top of each other it hands the control nothing: answers and timers wait in
/// their order until one closes.
class DesktopHost final : public QObject, private IMessageBoxes, private ITimers, private IIcons, private IFormWatcher {
  Q_OBJECT

 public:
  static constexpr int kMostBoxes = 8;

  /// `preset`: name of the ready-made settings, or empty.
  explicit DesktopHost(const sim::Settings& settings, const QString& preset = {});
  ~DesktopHost() override;

  UserCntrl& Control() { return *control_; }
  sim::Manager& Transmitter() { return *manager_; }
  /// Milliseconds since the host was made.
  std::int64_t Now() const { return clock_.elapsed(); }
  /// "SIMULATED", with ready-made settings "SIMULATED: tank".
  std::string Simulated() const;
  /// Message boxes stand before `window`.
  void SetBoxParent(QWidget* window) { boxParent_ = window; }
  /// A turn is due, whether the form has changed or not.
  void WantTurn() { FormChanged(); }

 Q_SIGNALS:
  /// Once a turn, when answers, timers or the operator may have changed the form.
  void TurnEnded();

 private:
  struct WaitingTimer {
    int timer;
    std::int64_t due;
  };

  BoxButton Show(const MessageBox& box) override;
  void Arm(int timer, std::int32_t milliseconds) override;
  void Disarm(int timer) override;
  bool Load(std::string_view fileName) override;
  void FormChanged() override;

  bool Full() const { return openBoxes_ >= kMostBoxes; }
  void TimerDue(int timer);
  void ArmTransmitter();
  void RunTransmitter();
  void RunTimer(int timer);

  const QString preset_;
  QElapsedTimer clock_;
  QTimer transmitterTimer_;
  std::array<QTimer, kTimerCount> timers_;
  std::deque<WaitingTimer> waitingTimers_;  // due while there were too many boxes
  int openBoxes_ = 0;
  QPointer<QWidget> boxParent_;
  bool turnQueued_ = false;
  std::shared_ptr<sim::Manager> manager_;
  std::shared_ptr<UserCntrl> control_;
};

}  // namespace htr60::desktop

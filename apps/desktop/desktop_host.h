#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <array>
#include <memory>

#include "desktop/core.h"
#include "simulator/manager/manager.h"

class QWidget;

namespace htr60::desktop {

/// One control with all it needs: the simulated transmitter's DTM manager, timers, message boxes, icons, a watcher.
/// Everything runs in the thread that made it, out of the event loop. The ports outlive the control.
class DesktopHost final : public QObject, private IMessageBoxes, private ITimers, private IIcons, private IFormWatcher {
  Q_OBJECT

 public:
  explicit DesktopHost(const sim::Settings& settings);
  ~DesktopHost() override;

  UserCntrl& Control() { return *control_; }
  sim::Manager& Transmitter() { return *manager_; }
  /// Message boxes stand before `window`.
  void SetBoxParent(QWidget* window) { boxParent_ = window; }

 Q_SIGNALS:
  /// Once a turn, when answers, timers or the operator may have changed the form.
  void TurnEnded();

 private:
  BoxButton Show(const MessageBox& box) override;
  void Arm(int timer, std::int32_t milliseconds) override;
  void Disarm(int timer) override;
  bool Load(std::string_view fileName) override;
  void FormChanged() override;

  void ArmTransmitter();
  void RunTransmitter();

  QElapsedTimer clock_;
  QTimer transmitterTimer_;
  std::array<QTimer, kTimerCount> timers_;
  QPointer<QWidget> boxParent_;
  bool turnQueued_ = false;
  std::shared_ptr<sim::Manager> manager_;
  std::shared_ptr<UserCntrl> control_;
};

}  // namespace htr60::desktop

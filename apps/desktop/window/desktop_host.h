#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <array>
#include <memory>
#include <optional>

#include "desktop/core.h"
#include "desktop/window/clock.h"
#include "observe/observer.h"
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

  /// `clock` outlives the host. `preset`: name of the ready-made settings, or empty.
  DesktopHost(Clock& clock, const sim::Settings& settings, const QString& preset = {});
  ~DesktopHost() override;

  UserCntrl& Control() { return *control_; }
  sim::Manager& Transmitter() { return *manager_; }
  /// What passes between the control and the manager.
  observe::Observer& Watched() { return *observer_; }
  const Clock& Time() const { return clock_; }
  /// "SIMULATED", with ready-made settings "SIMULATED: tank".
  std::string Simulated() const;
  /// Name of the ready-made settings, or empty.
  const QString& Preset() const { return preset_; }
  /// Message boxes stand before `window`.
  void SetBoxParent(QWidget* window) { boxParent_ = window; }
  /// A turn is due, whether the form has changed or not.
  void WantTurn() { FormChanged(); }
  /// The same at that time, in place of the time asked for before.
  void WantTurnAt(std::optional<std::int64_t> at);

 Q_SIGNALS:
  /// Once a turn, when answers, timers or the operator may have changed the form.
  void TurnEnded();

 private:
  // A timer of the control that runs.
  struct Due {
    std::int64_t at = 0;
    std::uint64_t armed = 0;  // of two that are due at once the one armed first
  };

  BoxButton Show(const ModalBox& box) override;
  void Arm(int timer, std::int32_t milliseconds) override;
  void Disarm(int timer) override;
  bool Load(std::string_view fileName) override;
  void FormChanged() override;

  bool Full() const { return openBoxes_ >= kMostBoxes; }
  int FirstTimer() const;
  void SetAlarm();
  void RunDue();
  void RunOne();

  const QString preset_;
  Clock& clock_;
  std::array<std::optional<Due>, kTimerCount> timers_;
  std::uint64_t armed_ = 0;
  std::optional<std::int64_t> turnAt_;
  int openBoxes_ = 0;
  QPointer<QWidget> boxParent_;
  bool turnQueued_ = false;
  std::shared_ptr<sim::Manager> manager_;
  std::shared_ptr<observe::Observer> observer_;
  std::shared_ptr<UserCntrl> control_;
};

}  // namespace htr60::desktop

#pragma once

#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <cstdint>
#include <optional>

namespace htr60::desktop {

/// The time of a session, in milliseconds since the clock was made, and its one alarm.
class Clock : public QObject {
  Q_OBJECT

 public:
  virtual std::int64_t Now() const = 0;
  /// The time of day at 0.
  virtual QDateTime Start() const = 0;
  /// The alarm sounds once at that time, never from within this call; none: it is off.
  virtual void SetAlarm(std::optional<std::int64_t> at) = 0;

 Q_SIGNALS:
  void Alarm();
};

/// The machine's own time.
class RealClock final : public Clock {
  Q_OBJECT

 public:
  RealClock();
  std::int64_t Now() const override { return sinceStart_.elapsed(); }
  QDateTime Start() const override { return start_; }
  void SetAlarm(std::optional<std::int64_t> at) override;

 private:
  const QDateTime start_ = QDateTime::currentDateTime();
  QElapsedTimer sinceStart_;
  QTimer alarm_;
};

/// A time that stands still until it is told to go on: for tests and for the tour, which so need no patience, and begin
/// at the same time of day at every run.
class SteppedClock final : public Clock {
  Q_OBJECT

 public:
  std::int64_t Now() const override { return now_; }
  QDateTime Start() const override { return {QDate(2026, 1, 1), QTime(10, 0)}; }
  void SetAlarm(std::optional<std::int64_t> at) override { alarm_ = at; }
  /// Goes on to the alarm where that is due by then, else to that time.
  void StepUntil(std::int64_t latest);
  /// Goes on to the alarm, which sounds within the call; false where none is set.
  bool Step();

 private:
  std::int64_t now_ = 0;
  std::optional<std::int64_t> alarm_;
};

}  // namespace htr60::desktop

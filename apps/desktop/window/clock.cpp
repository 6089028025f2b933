#include "desktop/window/clock.h"

#include <algorithm>
#include <utility>

#include "desktop/edge.h"

namespace htr60::desktop {
namespace {

constexpr std::int64_t kLongestMs = 24 * 3'600'000;  // then it is set anew

}  // namespace

RealClock::RealClock() {
  sinceStart_.start();
  alarm_.setSingleShot(true);
  alarm_.setTimerType(Qt::PreciseTimer);
  Connect(&alarm_, &QTimer::timeout, this, [this] { Q_EMIT Alarm(); });
}

void RealClock::SetAlarm(std::optional<std::int64_t> at) {
  if (!at) return alarm_.stop();
  alarm_.start(static_cast<int>(std::clamp<std::int64_t>(*at - Now(), 0, kLongestMs)));
}

bool SteppedClock::Step() {
  const auto alarm = std::exchange(alarm_, std::nullopt);
  if (!alarm) return false;
  now_ = std::max(now_, *alarm);
  Q_EMIT Alarm();
  return true;
}

void SteppedClock::StepUntil(std::int64_t latest) {
  if (!alarm_ || *alarm_ > latest) {
    now_ = std::max(now_, latest);
  } else {
    Step();
  }
}

}  // namespace htr60::desktop

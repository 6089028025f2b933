#include <algorithm>
#include <tuple>

#include "simulator/device/device.h"

// A long time that nobody has looked at. With noise, drift or a ramp every cycle differs from the one before, but most
// of what a cycle computes is forgotten with the next one. So only the last cycles are run, as many as show that the
// state does not depend on those before; the result is the same to the last bit.

namespace htr60::sim {
namespace {

/// The output follows the block's input.
bool Follows(const BlockConfig& c) { return c.target != kTargetMan && c.target != kTargetOutOfService; }

}  // namespace

/// Nothing of the blocks and the auto zero trim adds up over the cycles. What is held, by a failed sensor, a block in
/// manual mode and the like, is held over all of them, for no parameter and no fault changes on the way.
bool Device::Forgets() const {
  const bool damped = std::any_of(blockConfigs_.begin(), blockConfigs_.end(),
                                  [](const BlockConfig& c) { return Follows(c) && c.lag.Remembers(); });
  return !autoZero_.on && !damped;
}

/// Skips what can be skipped up to `last` and runs the cycles after that; false where the cycles have to be run in
/// turn.
bool Device::SkipUnseen(std::int64_t last) {
  constexpr std::int64_t kLeast = static_cast<std::int64_t>(History::kCycles) + 4;
  constexpr std::int64_t kWorthwhile = 4;
  if (cycle_ < unskippable_ || dirty_ || process_.Quiet() || !Forgets()) return false;
  for (std::int64_t window = kLeast; window * kWorthwhile <= last - cycle_; window *= kWorthwhile) {
    const auto before = std::tuple(process_, chain_, blocks_, histories_, cycle_, quietCycles_);
    AdvanceUnseen(last - window);
    if (RunUntilKnown(last)) return true;
    std::tie(process_, chain_, blocks_, histories_, cycle_, quietCycles_) = before;
  }
  unskippable_ = last;
  return false;
}

void Device::AdvanceUnseen(std::int64_t last) {
  if (!config_.sensorLag.Remembers() && !config_.thermalLag.Remembers()) {
    process_.Advance(cycle_, last);
    cycle_ = last;
    return;
  }
  while (cycle_ < last) {
    process_.Advance(++cycle_);
    chain_.FollowLags(config_, InputAt(cycle_));
  }
}

/// Runs the cycles up to `last`; true where their result is the same whatever was before: an alarm within its
/// hysteresis and the density of a fluid that sensor 2 does not reach could come from any earlier cycle.
bool Device::RunUntilKnown(std::int64_t last) {
  const auto withOtherAlarms = [this] {
    std::array<Block, 3> others = blocks_;
    for (std::size_t i = 0; i < others.size(); ++i) {
      if (Follows(blockConfigs_[i])) others[i] = blocks_[i].WithOtherAlarms();
    }
    return others;
  };
  std::array<Block, 3> others = withOtherAlarms();
  bool known = !(config_.type == kLevel && config_.compensation);
  while (cycle_ < last) {
    RunCycle(++cycle_, false);
    RunBlocks(others, false);
    if (known || chain_.KeepsDensity()) continue;
    // What the alarms made of a doubtful density counts for nothing.
    known = true;
    others = withOtherAlarms();
  }
  return known && others == blocks_;
}

}  // namespace htr60::sim

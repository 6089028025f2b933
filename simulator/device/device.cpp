#include "simulator/device/device.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "simulator/device/units.h"

namespace htr60::sim {
namespace {

/// Pressures of both sensors in Pa that show a round primary value.
std::array<double, 2> DefaultPressures(int primaryValueType) {
  switch (primaryValueType) {
    case kFlow:
      return {19350, 10000};
    case kLevel:
      return {24709.975, 10000};
    case kDensity:
      return {14903.325, 10000};
    default:
      return {20000, 10000};
  }
}

}  // namespace

void History::Push(double value) {
  values_[next_] = value;
  next_ = (next_ + 1) % kCycles;
}

void History::Fill(double value) { values_.fill(value); }

double History::Movement() const {
  const auto [least, most] = std::minmax_element(values_.begin(), values_.end());
  return *most - *least;
}

Device::Device(const DeviceSettings& settings, const ProcessSettings& process, std::uint64_t seed)
    : settings_(settings),
      start_(StartParameters(settings)),
      p_(start_),
      process_(process, DefaultPressures(settings.primaryValueType), settings.height, seed) {
  factoryCopy_ = lastCopy_ = TakeCalibration();
  BackUpSensorData();
  RunCycle(0, true);
  const Live& live = Now();
  const std::array<double, 5> start{live.curve, live.sensors[0].untrimmed, live.sensors[1].untrimmed, live.tRaw,
                                    live.rhoR};
  for (std::size_t i = 0; i < start.size(); ++i) histories_[i].Fill(start[i]);
}

ParameterStore& Device::Change() {
  Touch();
  return p_;
}

TrimState& Device::Trim() {
  Touch();
  return trim_;
}

void Device::Touch() {
  dirty_ = true;
  quietCycles_ = 0;
}

void Device::CatchUp(std::int64_t nowMs) {
  // Once nothing has moved for longer than the histories reach, the state only repeats itself.
  constexpr int kSettled = static_cast<int>(History::kCycles) + 5;
  nowMs_ = std::max(nowMs_, nowMs);
  const std::int64_t last = nowMs_ / kCycleMs;
  while (cycle_ < last) {
    if (quietCycles_ >= kSettled && !dirty_) {
      const std::int64_t before = cycle_;
      PassOver(last);
      if (cycle_ > before) continue;
    }
    if (!SkipUnseen(last)) RunCycle(++cycle_, false);
  }
}

/// Passes over cycles that only repeat each other, up to the next step of the profile or of the auto zero trim.
void Device::PassOver(std::int64_t last) {
  const auto step = process_.NextStepCycle();
  std::int64_t until = step ? std::min(last, *step - 1) : last;
  if (IsNearZero()) {
    until = std::min(until, cycle_ + (autoZero_.timeMs - 1) / kCycleMs - autoZeroCycles_);
    autoZeroCycles_ += std::max<std::int64_t>(until - cycle_, 0);
  }
  cycle_ = std::max(cycle_, until);
}

void Device::RunCycle(std::int64_t cycle, bool steady) {
  if (dirty_) BuildConfig();
  const Live before = Now();
  const auto blocksBefore = blocks_;
  process_.Advance(cycle);
  chain_.Cycle(config_, InputAt(cycle), faults_, steady);
  RunBlocks(blocks_, steady);
  const Live& live = Now();
  const std::array<double, 5> measured{live.curve, live.sensors[0].untrimmed, live.sensors[1].untrimmed, live.tRaw,
                                       live.rhoR};
  for (std::size_t i = 0; i < measured.size(); ++i) histories_[i].Push(measured[i]);
  const bool quiet = process_.Quiet() && live == before && blocks_ == blocksBefore;
  quietCycles_ = quiet ? quietCycles_ + 1 : 0;
  AutoZero();
}

ChainInput Device::InputAt(std::int64_t cycle) const {
  ChainInput input;
  for (std::size_t s = 0; s < 2; ++s) {
    input.pressure[s] = process_.Applied(s, cycle);
    input.drift[s] = process_.Drift(s);
  }
  input.temperature = process_.Temperature();
  input.ambient = process_.Ambient();
  return input;
}

void Device::Settle() {
  if (dirty_) BuildConfig();
  chain_.Cycle(config_, InputAt(cycle_), faults_, true);
  RunBlocks(blocks_, true);
  quietCycles_ = 0;
}

void Device::RunBlocks(std::array<Block, 3>& blocks, bool steady) const {
  for (std::size_t i = 0; i < blocks.size(); ++i) blocks[i].Cycle(blockConfigs_[i], Measure(channels_[i]), steady);
}

Device::ChannelConfig Device::ChannelOfBlock(int block) const {
  const ChannelSource source = ChannelOf(p_, block);
  switch (source) {
    case ChannelSource::kSensorHi:
      return {source, PascalPer(Code("snsUnit.hi"))};
    case ChannelSource::kSensorLo:
      return {source, PascalPer(Code("snsUnit.lo"))};
    case ChannelSource::kPress:
      return {source, PascalPer(Code("inUnit"))};
    default:
      return {source, 1};
  }
}

BlockInput Device::Channel(int block) const { return Measure(ChannelOfBlock(block)); }

BlockInput Device::Measure(const ChannelConfig& channel) const {
  const Live& live = Now();
  const auto sensor = [&](std::size_t s) {
    return BlockInput{live.sensors[s].p / channel.pascal, live.sensors[s].status};
  };
  switch (channel.source) {
    case ChannelSource::kPv:
      return {live.pv, live.pvStatus};
    case ChannelSource::kSensorHi:
      return sensor(0);
    case ChannelSource::kSensorLo:
      return sensor(1);
    case ChannelSource::kPress:
      return {live.press / channel.pascal, live.pressStatus};
    case ChannelSource::kVolume:
      return {live.volume, live.volumeStatus};
    case ChannelSource::kCompensatedDensity:
      return {live.compensatedRho, live.pressStatus};
    case ChannelSource::kTemperature:
      return {live.t, live.tStatus};
    case ChannelSource::kTrueDensity:
      return {live.rho, live.baseStatus};
    case ChannelSource::kDensity20:
      return {live.rho20, live.baseStatus};
  }
  return {};
}

void Device::WriteOut(int block, double out, unsigned status) {
  Touch();
  blocks_[static_cast<std::size_t>(block - 1)].Write(out, status);
}

bool Device::IsNearZero() const {
  return autoZero_.on && Now().dpStatus == kStatusGood && std::abs(Now().trim - autoZero_.reference) <= autoZero_.band;
}

void Device::AutoZero() {
  if (!IsNearZero()) {
    autoZeroCycles_ = 0;
    return;
  }
  ++autoZeroCycles_;
  if (autoZeroCycles_ * kCycleMs < autoZero_.timeMs) return;
  autoZeroCycles_ = 0;
  const double offset = Number("offset") * 1000 + autoZero_.target - Now().trim;
  if (std::abs(offset) > UpperRangeLimit(0) / 10) return;
  const std::string digits = FloatDigits(offset / 1000);
  if (digits != Digits("offset")) Put("offset", digits);
}

void Device::SetDeviceSettings(const DeviceSettings& device) {
  Touch();
  if (device.selfCalibration != settings_.selfCalibration) airCalibrated = false;
  if (device.firmware != settings_.firmware) {
    const std::string digits = TextDigits(device.firmware, 16, ' ');
    p_.Set("firmware", digits);
    start_.Set("firmware", digits);
  }
  settings_ = device;
}

void Device::SetProcess(const ProcessSettings& process) {
  Touch();
  process_.Change(process.start);
  if (process.profile) process_.SetProfile(*process.profile, nowMs_);
}

void Device::SetSeed(std::uint64_t seed) {
  Touch();
  process_.SetSeed(seed);
}

void Device::SetFaults(const SensorFaults& faults) {
  Touch();
  faults_ = faults;
}

double Device::UpperRangeLimit(std::size_t sensor) const {
  const auto code = Code(sensor == 0 ? "range.hi" : "range.lo");
  return 1000 * RangeLimitKilopascal(code, FittedRange(sensor));
}

std::optional<Absence> Device::TakeAbsence() { return std::exchange(absence_, std::nullopt); }

void Device::Log(std::string line) {
  const std::size_t bytes = sizeof(line) + line.size();
  log_.Push(std::move(line), bytes);
}

}  // namespace htr60::sim

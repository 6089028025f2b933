#include "simulator/device/device.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "simulator/device/units.h"

namespace htr60::sim {

void History::Push(double value) {
  values_[next_] = value;
  next_ = (next_ + 1) % kCycles;
}

void History::Fill(double value) { values_.fill(value); }

double History::Movement() const {
  const auto [least, most] = std::minmax_element(values_.begin(), values_.end());
  return *most - *least;
}

Device::Device(const Settings& settings)
    : settings_(settings), start_(StartParameters(settings.device)), p_(start_), process_(settings) {
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
      const auto step = process_.NextStepCycle();
      const std::int64_t until = step ? std::min(last, *step - 1) : last;
      if (until > cycle_) {
        cycle_ = until;
        continue;
      }
    }
    RunCycle(++cycle_, false);
  }
}

void Device::RunCycle(std::int64_t cycle, bool steady) {
  if (dirty_) BuildConfig();
  const Live before = Now();
  const auto blocksBefore = blocks_;
  process_.Advance(cycle);
  chain_.Cycle(config_, InputAt(cycle), faults_, steady);
  RunBlocks(steady);
  const Live& live = Now();
  const std::array<double, 5> measured{live.curve, live.sensors[0].untrimmed, live.sensors[1].untrimmed, live.tRaw,
                                       live.rhoR};
  for (std::size_t i = 0; i < measured.size(); ++i) histories_[i].Push(measured[i]);
  const bool quiet = process_.Quiet() && Code("azEnable") != 1 && live == before && blocks_ == blocksBefore;
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
  RunBlocks(true);
  quietCycles_ = 0;
}

void Device::RunBlocks(bool steady) {
  for (std::size_t i = 0; i < blocks_.size(); ++i) {
    blocks_[i].Cycle(blockConfigs_[i], Channel(static_cast<int>(i) + 1), steady);
  }
}

BlockInput Device::Channel(int block) const {
  const Live& live = Now();
  const auto sensor = [&](std::size_t s, std::string_view unit) {
    return BlockInput{live.sensors[s].p / PascalPer(Code(unit)), live.sensors[s].status};
  };
  switch (ChannelOf(p_, block)) {
    case ChannelSource::kPv:
      return {live.pv, live.pvStatus};
    case ChannelSource::kSensorHi:
      return sensor(0, "snsUnit.hi");
    case ChannelSource::kSensorLo:
      return sensor(1, "snsUnit.lo");
    case ChannelSource::kPress:
      return {live.press / PascalPer(Code("inUnit")), live.pressStatus};
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

void Device::AutoZero() {
  const double unit = PascalPer(Code("sensorUnit"));
  const double trim = Now().trim;
  const bool near = Code("azEnable") == 1 && Now().dpStatus == kStatusGood &&
                    std::abs(trim - Number("azRef") * unit) <= Number("azBand") * unit;
  if (!near) {
    autoZeroCycles_ = 0;
    return;
  }
  ++autoZeroCycles_;
  if (autoZeroCycles_ * kCycleMs < static_cast<std::int64_t>(Code("azTime")) * 1000) return;
  autoZeroCycles_ = 0;
  const bool usingLower = Code("azSelect") == 2;
  const double target = usingLower ? Number("inScale", 8) * PascalPer(Code("inUnit")) : Number("azRef") * unit;
  const double offset = Number("offset") * 1000 + target - trim;
  if (std::abs(offset) > UpperRangeLimit(0) / 10) return;
  Change().SetNumber("offset", offset / 1000);
}

void Device::SetDeviceSettings(const DeviceSettings& device) {
  Touch();
  if (device.selfCalibration != settings_.device.selfCalibration) airCalibrated = false;
  if (device.firmware != settings_.device.firmware) {
    const std::string digits = TextDigits(device.firmware, 16, ' ');
    p_.Set("firmware", digits);
    start_.Set("firmware", digits);
  }
  settings_.device = device;
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

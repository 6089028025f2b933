#include "simulator/device/block.h"

#include "simulator/device/chain.h"

namespace htr60::sim {
namespace {

constexpr unsigned kOutOfService = 0x1C;
constexpr unsigned kSubstitute = 0x48;
constexpr unsigned kLastUsable = 0x44;

unsigned AlarmStatus(unsigned alarms) {
  if ((alarms & kAlarmHiHi) != 0) return 0x8E;
  if ((alarms & kAlarmLoLo) != 0) return 0x8D;
  if ((alarms & kAlarmHi) != 0) return 0x8A;
  if ((alarms & kAlarmLo) != 0) return 0x89;
  return kStatusGood;
}

}  // namespace

void Block::Cycle(const BlockConfig& c, const BlockInput& channel, bool steady) {
  if (c.target == kTargetOutOfService) {
    status_ = kOutOfService;
    lag_ = out_;
    return;
  }
  if (c.target == kTargetMan) {
    lag_ = out_;
    JudgeAlarms(c);
    return;
  }
  Automatic(c, c.simulated ? BlockInput{c.simValue, c.simStatus} : channel, steady);
  JudgeAlarms(c);
  if (status_ == kStatusGood) status_ = AlarmStatus(alarms_);
}

void Block::Automatic(const BlockConfig& c, const BlockInput& input, bool steady) {
  if (c.pvUpper == c.pvLower) {
    status_ = kBadConfiguration;
    return;
  }
  const double share = (input.value - c.pvLower) / (c.pvUpper - c.pvLower);
  const double target = c.outLower + share * (c.outUpper - c.outLower);
  c.lag.Follow(lag_, target, steady);
  status_ = input.status;
  out_ = lag_;
  if (!IsBad(input.status)) {
    lastGood_ = out_;
  } else if (c.failSafeType == 0) {
    out_ = c.failSafeValue;
    status_ = kSubstitute;
  } else if (c.failSafeType == 1) {
    out_ = lastGood_;
    status_ = kLastUsable;
  }
}

void Block::Write(double out, unsigned status) {
  out_ = out;
  status_ = status;
  if (!IsBad(status)) lastGood_ = out;
}

Block Block::WithOtherAlarms() const {
  Block other = *this;
  other.alarms_ ^= kAlarmHiHi | kAlarmHi | kAlarmLoLo | kAlarmLo;
  return other;
}

void Block::JudgeAlarms(const BlockConfig& c) {
  // Compared as the singles that travel, so that an output that reads as its limit has reached it.
  const auto out = static_cast<float>(out_);
  const auto judge = [&](unsigned alarm, bool reached, bool back) {
    if (reached) alarms_ |= alarm;
    if (back) alarms_ &= ~alarm;
  };
  judge(kAlarmHiHi, out >= static_cast<float>(c.hiHi), out < static_cast<float>(c.hiHi - c.hyst));
  judge(kAlarmHi, out >= static_cast<float>(c.hi), out < static_cast<float>(c.hi - c.hyst));
  judge(kAlarmLoLo, out <= static_cast<float>(c.loLo), out > static_cast<float>(c.loLo + c.hyst));
  judge(kAlarmLo, out <= static_cast<float>(c.lo), out > static_cast<float>(c.lo + c.hyst));
}

}  // namespace htr60::sim

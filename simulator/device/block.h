#pragma once

#include "simulator/device/lag.h"

namespace htr60::sim {

inline constexpr unsigned kTargetAuto = 0x08;
inline constexpr unsigned kTargetMan = 0x10;
inline constexpr unsigned kTargetOutOfService = 0x80;

inline constexpr unsigned kAlarmHiHi = 0x0200;
inline constexpr unsigned kAlarmHi = 0x0400;
inline constexpr unsigned kAlarmLoLo = 0x0800;
inline constexpr unsigned kAlarmLo = 0x1000;

/// Parameters of one Analog Input block, in engineering values.
struct BlockConfig {
  unsigned target = kTargetAuto;
  Lag lag;  ///< the damping
  double pvUpper = 1, pvLower = 0, outUpper = 1, outLower = 0;
  double hiHi = 0, hi = 0, loLo = 0, lo = 0, hyst = 0;
  unsigned failSafeType = 1;
  double failSafeValue = 0;
  bool simulated = false;
  double simValue = 0;
  unsigned simStatus = 0x80;
};

/// A value with its status.
struct BlockInput {
  double value = 0;
  unsigned status = 0x80;
  bool operator==(const BlockInput&) const = default;
};

/// One Analog Input block: scaling, damping, fail safe, alarms.
class Block {
 public:
  /// `steady` leaves out the damping.
  void Cycle(const BlockConfig& config, const BlockInput& channel, bool steady);
  /// The output that an operator writes in manual mode.
  void Write(double out, unsigned status);

  double Out() const { return out_; }
  unsigned Status() const { return status_; }
  /// Active alarms, a set of `kAlarm...`.
  unsigned Alarms() const { return alarms_; }

  /// The same block with each alarm the other way round.
  Block WithOtherAlarms() const;

  bool operator==(const Block&) const = default;

 private:
  void Automatic(const BlockConfig& c, const BlockInput& input, bool steady);
  void JudgeAlarms(const BlockConfig& c);

  double lag_ = 0;
  double out_ = 0;
  double lastGood_ = 0;
  unsigned status_ = 0x80;
  unsigned alarms_ = 0;
};

}  // namespace htr60::sim

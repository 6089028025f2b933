#include "simulator/device/chain.h"

#include <algorithm>
#include <cmath>

namespace htr60::sim {
namespace {

double Percent(double value, double upper, double lower) {
  return upper == lower ? 0 : 100 * (value - lower) / (upper - lower);
}

double Root(double percent, double sqrtPoint, double cutOff) {
  double y = 0;
  if (percent > 0) y = percent < sqrtPoint * sqrtPoint / 100 ? 100 * percent / sqrtPoint : 10 * std::sqrt(percent);
  return y < cutOff ? 0 : y;
}

double Characteristic(const std::array<double, 12>& a, double u, double celsius) {
  const double theta = (celsius - 25) / 100;
  double result = 0;
  for (std::size_t i = 6; i > 0; --i) result = result * u + (a[i - 1] + theta * a[i + 5]);
  return result;
}

}  // namespace

double Interpolate(const double* x, const double* y, std::size_t points, double at, bool extend) {
  if (points == 0) return at;
  if (points == 1) return y[0];
  const bool rising = x[points - 1] > x[0];
  const auto before = [&](std::size_t i) { return rising ? at < x[i] : at > x[i]; };
  std::size_t k = 1;
  while (k + 1 < points && !before(k)) ++k;
  if (!extend && before(0)) return y[0];
  if (!extend && !before(points - 1)) return y[points - 1];
  if (x[k] == x[k - 1]) return y[k];
  return y[k - 1] + (at - x[k - 1]) * (y[k] - y[k - 1]) / (x[k] - x[k - 1]);
}

void Chain::Cycle(const ChainConfig& config, const ChainInput& input, const SensorFaults& faults, bool steady) {
  keepsDensity_ = false;
  Temperature(config, input, faults, steady);
  Sensors(config, input, faults, steady);
  Diagnosis(config, faults);
  Differential(config);
  if (config.type == 0x81) {
    Density(config);
  } else {
    Linear(config);
  }
  started_ = true;
}

void Chain::FollowLags(const ChainConfig& config, const ChainInput& input) {
  config.thermalLag.Follow(laggedTemperature_, input.temperature + config.temperatureError, false);
  for (std::size_t s = 0; s < 2; ++s) config.sensorLag.Follow(lagged_[s], input.pressure[s], false);
}

void Chain::Temperature(const ChainConfig& c, const ChainInput& input, const SensorFaults& faults, bool steady) {
  c.thermalLag.Follow(laggedTemperature_, input.temperature + c.temperatureError, steady);
  if (!faults.board || !started_) {
    live_.tRaw = laggedTemperature_;
    live_.t = c.gainTemp * live_.tRaw + c.offsetTemp;
  }
  live_.tStatus = kStatusGood;
  if (faults.board) {
    live_.tStatus = kBadDevice;
  } else if (live_.t > c.tempMax) {
    live_.tStatus = kSensorHigh;
  } else if (live_.t < c.tempMin) {
    live_.tStatus = kSensorLow;
  }
}

void Chain::Sensors(const ChainConfig& c, const ChainInput& input, const SensorFaults& faults, bool steady) {
  for (std::size_t s = 0; s < 2; ++s) {
    const SensorConfig& sensor = c.sensors[s];
    LiveSensor& live = live_.sensors[s];
    c.sensorLag.Follow(lagged_[s], input.pressure[s], steady);
    if (!faults.stuck[s] || !started_) {
      const double seen = (1 + sensor.gainError) * lagged_[s] + sensor.offsetError + input.drift[s] +
                          sensor.ambientEffect * (input.ambient - 25);
      live.reading = std::clamp(seen / sensor.urlFitted, -1.5, 1.5);
    }
    live.status = kStatusGood;
    if (!c.connected || faults.disconnected[s]) {
      live.status = kBadNotConnected;
    } else if (faults.board) {
      live.status = kBadDevice;
    } else if (faults.failed[s]) {
      live.status = kBadSensor;
    }
    live.cap = live.status == kStatusGood ? std::clamp(3000 / (1 - 0.4 * live.reading), 1875.0, 7500.0) : kNoReading;
    // A sensor that does not answer leaves the pressure that was good last.
    if (live.status != kStatusGood && started_) continue;
    const double u = 0.4 * live.reading;
    live.untrimmed = Characteristic(sensor.poly, u, live_.t) * sensor.url;
    live.p = sensor.gain * live.untrimmed + sensor.offset;
  }
}

void Chain::Diagnosis(const ChainConfig& c, const SensorFaults& faults) {
  constexpr double kGainTolerance = 0.1;
  const auto wild = [](double gain) { return gain < 1 - kGainTolerance || gain > 1 + kGainTolerance; };
  bool gains = wild(c.gain);
  bool offsets = std::abs(c.offset) > c.sensors[0].url / 10;
  for (const auto& sensor : c.sensors) {
    gains = gains || wild(sensor.gain);
    offsets = offsets || std::abs(sensor.offset) > sensor.url / 10;
  }
  live_.diag = 0;
  if (!c.connected || faults.disconnected[0] || faults.disconnected[1]) {
    live_.diag = 3;
  } else if (faults.board) {
    live_.diag = 1;
  } else if (!c.sensors[0].initialized || !c.sensors[1].initialized) {
    live_.diag = 2;
  } else if (faults.failed[0]) {
    live_.diag = 5;
  } else if (faults.failed[1]) {
    live_.diag = 4;
  } else if (gains) {
    live_.diag = 6;
  } else if (offsets) {
    live_.diag = 7;
  }
}

void Chain::Differential(const ChainConfig& c) {
  live_.raw = live_.sensors[0].p - live_.sensors[1].p;
  live_.curve = c.curveOn ? Interpolate(c.curveX.data(), c.curveY.data(), c.curvePoints, live_.raw, true) : live_.raw;
  live_.trim = c.gain * live_.curve + c.offset;
  live_.dpStatus = std::min(live_.sensors[0].status, live_.sensors[1].status);
  live_.press = c.zeroFilter && std::abs(live_.trim) < 0.0005 * c.sensors[0].url ? 0 : live_.trim;
  live_.pressStatus = live_.dpStatus;
  if (c.debug && c.type == 0x81) {
    live_.press = c.debugPressure;
    live_.t = c.debugTemp;
    live_.pressStatus = kSimulated;
    live_.tStatus = kSimulated;
  }
  live_.pressNormal = Percent(live_.press / c.inPascal, c.inUpper, c.inLower);
}

unsigned Chain::LimitStatus(const ChainConfig& c) const {
  const auto check = [](double value, const SensorConfig& s) -> unsigned {
    const double margin = 1e-6 * s.url;  // of the single that the limit is kept in
    if (value > s.limHi + margin) return kSensorHigh;
    return value < s.limLo - margin ? kSensorLow : kStatusGood;
  };
  for (std::size_t s = 0; s < 2; ++s) {
    const unsigned status = check(live_.sensors[s].p, c.sensors[s]);
    if (status != kStatusGood) return status;
  }
  return check(live_.raw, c.sensors[0]);
}

void Chain::PrimaryStatus(const ChainConfig& c, int held) {
  unsigned status = kStatusGood;
  switch (live_.diag) {
    case 3:
      status = kBadNotConnected;
      break;
    case 1:
      status = kBadDevice;
      break;
    case 2:
      status = kBadConfiguration;
      break;
    case 4:
    case 5:
      status = kBadSensor;
      break;
    default:
      status = LimitStatus(c);
  }
  if (c.debug && c.type == 0x81) status = kSimulated;
  live_.baseStatus = status;
  const double spanned = c.type == 0x81 ? live_.pvPercent : live_.linNormal;
  if (status == kStatusGood && (spanned > 110 || held > 0)) status = kRangeHigh;
  if (status == kStatusGood && (spanned < -10 || held < 0)) status = kRangeLow;
  live_.volumeStatus = status;
  if (IsBad(status) && started_) live_.pv = lastGoodPv_;
  lastGoodPv_ = live_.pv;
  if (c.simulated && c.type != 0x81) {
    live_.pv = c.simValue;
    status = c.simStatus;
  }
  live_.pvStatus = status;
  live_.pvPercent = Percent(live_.pv, c.outUpper, c.outLower);
}

void Chain::Linear(const ChainConfig& c) {
  double input = live_.press;
  if (c.type == 2 && c.compensation) {
    const double top = live_.sensors[1].p;
    keepsDensity_ = !(top > c.deadBand && live_.press > 0);
    if (!keepsDensity_) live_.compensatedRho = live_.press / (c.gravity * c.height);
    // The input scale is given for water.
    input = live_.sensors[0].p * 1000 / live_.compensatedRho;
  }
  live_.pressNormal = Percent(input / c.inPascal, c.inUpper, c.inLower);
  double y = live_.pressNormal;
  if (c.linType == 0x0A || c.linType == 0xF0) y = Root(y, c.sqrtPoint, c.cutOff);
  if (c.linType == 0x01 || c.linType == 0xF0) {
    y = Interpolate(c.tableX.data(), c.tableY.data(), c.tablePoints, y, false);
  }
  live_.linNormal = y;
  live_.pv = c.outLower + y / 100 * (c.outUpper - c.outLower);
  live_.volume = c.volLower + y / 100 * (c.volUpper - c.volLower);
  live_.weight =
      c.type == 2 && c.compensation ? live_.compensatedRho / 1000 : live_.press / (c.gravity * c.height) / 1000;
  PrimaryStatus(c, 0);
}

void Chain::Density(const ChainConfig& c) {
  live_.densityDp = (c.direct ? live_.press : -live_.press) - c.pressCoeff * (live_.t - c.zeroTemp);
  const double height = c.height * (1 + c.dilatation * (live_.t - c.heightTemp));
  live_.rhoR = live_.densityDp / (c.gravity * height);
  live_.rho = c.densGain * live_.rhoR + c.densOffset;
  live_.rho20 = live_.rho / WaterDensity(live_.t) * WaterDensity(20);
  const MeasuredValue measured = MeasuredFromDensity(c.measuredType, live_.rho, live_.t, c.coefficients);
  live_.pv = measured.value;
  if (c.linType == 0x01) {
    const double y =
        Interpolate(c.tableX.data(), c.tableY.data(), c.tablePoints, Percent(live_.pv, c.outUpper, c.outLower), false);
    live_.pv = c.outLower + y / 100 * (c.outUpper - c.outLower);
  }
  live_.pvPercent = Percent(live_.pv, c.outUpper, c.outLower);
  live_.linNormal = live_.pvPercent;
  PrimaryStatus(c, measured.held);
  live_.weight = live_.pv;
}

}  // namespace htr60::sim

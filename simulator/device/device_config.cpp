#include "simulator/device/device.h"
#include "simulator/device/units.h"

namespace htr60::sim {
namespace {

constexpr double kCycleSeconds = 0.1;

std::string Indexed(std::string_view name, std::size_t index) {
  return std::string(name).append("[").append(std::to_string(index)).append("]");
}

}  // namespace

void Device::BuildConfig() {
  dirty_ = false;
  config_.type = static_cast<int>(Code("pvType"));
  config_.sensorLag = Lag(settings_.sensorLagMs, kCycleMs);
  config_.thermalLag = Lag(settings_.thermalLagMs, kCycleMs);
  config_.temperatureError = settings_.temperatureError;
  config_.connected = Code("connected") != 0;
  config_.gain = Number("gain");
  config_.offset = 1000 * Number("offset");
  config_.gainTemp = Number("gainTemp");
  config_.offsetTemp = Number("offsetTemp");
  config_.zeroFilter = Code("zeroFilter") == 1;
  config_.inPascal = PascalPer(Code("inUnit"));
  config_.inUpper = Number("inScale", 0);
  config_.inLower = Number("inScale", 8);
  config_.linType = static_cast<unsigned>(Code("linType"));
  config_.sqrtPoint = Number("sqrtPoint");
  config_.cutOff = Number("cutOff");
  config_.outUpper = Number("outScale", 0);
  config_.outLower = Number("outScale", 8);
  config_.volUpper = Number("volScale", 0);
  config_.volLower = Number("volScale", 8);
  config_.compensation = Code("compensation") == 1;
  config_.deadBand = Number("deadBand") * PascalPer(Code("sensorUnit"));
  config_.simulated = Code("simEnable") != 0;
  config_.simValue = Number("simValue");
  config_.simStatus = static_cast<unsigned>(NumberOf(Digits("simValue").substr(8)));
  config_.debug = Code("debugEnable") == 1;
  config_.debugPressure = Number("debugPressure") * config_.inPascal;
  config_.debugTemp = ToCelsius(Number("debugTemp"), Code("tempUnit"));
  config_.tempMin = ToCelsius(Number("tempMin"), Code("tempUnit"));
  config_.tempMax = ToCelsius(Number("tempMax"), Code("tempUnit"));
  BuildSensors();
  BuildCurves();
  BuildDensity();
  BuildBlocks();
  BuildAutoZero();
}

void Device::BuildAutoZero() {
  const double unit = PascalPer(Code("sensorUnit"));
  autoZero_.on = Code("azEnable") == 1;
  autoZero_.reference = Number("azRef") * unit;
  autoZero_.band = Number("azBand") * unit;
  autoZero_.target = Code("azSelect") == 2 ? Number("inScale", 8) * config_.inPascal : autoZero_.reference;
  autoZero_.timeMs = static_cast<std::int64_t>(Code("azTime")) * 1000;
}

void Device::BuildSensors() {
  const double unit = PascalPer(Code("sensorUnit"));
  for (std::size_t s = 0; s < 2; ++s) {
    const std::string side = s == 0 ? ".hi" : ".lo";
    SensorConfig& sensor = config_.sensors[s];
    sensor.url = UpperRangeLimit(s);
    sensor.urlFitted = 1000 * RangeLimitKilopascal(0, FittedRange(s));
    for (std::size_t i = 0; i < sensor.poly.size(); ++i) sensor.poly[i] = Number("poly" + side, 8 * i);
    sensor.gain = Number("gain" + side);
    sensor.offset = 1000 * Number("offset" + side);
    sensor.gainError = settings_.gainError[s];
    sensor.offsetError = settings_.offsetError[s];
    sensor.ambientEffect = settings_.ambientEffect[s];
    sensor.limHi = unit * Number("limHi" + side);
    sensor.limLo = unit * Number("limLo" + side);
    sensor.initialized = Code("initialized" + side) == 0xAA && Code("range" + side) != 0;
  }
}

void Device::BuildCurves() {
  const double unit = PascalPer(Code("sensorUnit"));
  config_.curveOn = Code("charOperation") == 3 || Code("charOperation") == 4;
  config_.curvePoints = static_cast<std::size_t>(p_.Index("curveLength", 16));
  for (std::size_t i = 0; i < config_.curveX.size(); ++i) {
    config_.curveX[i] = unit * Number("curveX", 8 * i);
    config_.curveY[i] = unit * Number("curveY", 8 * i);
  }
  config_.tablePoints = static_cast<std::size_t>(p_.Index("tablePoints", 21));
  for (std::size_t i = 0; i < config_.tableX.size(); ++i) {
    const std::string point = Indexed("point", i + 1);
    config_.tableX[i] = Number(point, 0);
    config_.tableY[i] = Number(point, 8);
  }
}

void Device::BuildDensity() {
  config_.gravity = Number("gravity");
  config_.height = Number("height");
  config_.direct = Code("mounting") != 0;
  config_.pressCoeff = Number("pressCoeff");
  config_.zeroTemp = Number("zeroTemp");
  config_.dilatation = Number("dilatation");
  config_.heightTemp = Number("heightTemp");
  config_.measuredType = p_.Index("measuredType", kMeasuredTypes - 1);
  config_.densGain = trim_.densGain;
  config_.densOffset = trim_.densOffset;
  DensityCoefficients& c = config_.coefficients;
  for (std::size_t i = 0; i < c.k.size(); ++i) c.k[i] = Number(Indexed("k", i));
  for (std::size_t i = 0; i < c.solid.size(); ++i) c.solid[i] = Number(Indexed("solid", i));
  c.limTempHi = Number("limTempHi");
  c.limTempLo = Number("limTempLo");
  c.limDensHi = Number("limDensHi");
  c.limDensLo = Number("limDensLo");
  c.kDens = Number("kDens");
  c.kTemp = Number("kTemp");
  c.solidHi = Number("solidHi");
  c.solidLo = Number("solidLo");
}

void Device::BuildBlocks() {
  for (int block = 1; block <= 3; ++block) {
    const auto index = static_cast<std::size_t>(block - 1);
    channels_[index] = ChannelOfBlock(block);
    BlockConfig& c = blockConfigs_[index];
    const auto number = [&](std::string_view name, std::size_t at = 0) { return Number(BlockName(block, name), at); };
    const PvScale scale = PvScaleOf(p_, block);
    c.target = static_cast<unsigned>(Code(BlockName(block, "target")));
    c.lag = Lag(number("damping"), kCycleSeconds);
    c.pvUpper = scale.upper;
    c.pvLower = scale.lower;
    c.outUpper = number("outScale", 0);
    c.outLower = number("outScale", 8);
    c.hiHi = number("hiHi");
    c.hi = number("hi");
    c.loLo = number("loLo");
    c.lo = number("lo");
    c.hyst = number("hyst");
    c.failSafeType = static_cast<unsigned>(Code(BlockName(block, "fsType")));
    c.failSafeValue = number("fsValue");
    const std::string& sim = Digits(BlockName(block, "sim"));
    c.simulated = NumberOf(std::string_view(sim).substr(10)) != 0;
    c.simStatus = static_cast<unsigned>(NumberOf(std::string_view(sim).substr(0, 2)));
    c.simValue = FloatAt(sim, 2);
  }
}

}  // namespace htr60::sim

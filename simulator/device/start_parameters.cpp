#include <array>

#include "simulator/device/density.h"
#include "simulator/device/parameters.h"
#include "simulator/device/units.h"

namespace htr60::sim {
namespace {

struct DigitsRow {
  std::string_view name;
  Form form;
  std::string_view digits;
};

constexpr std::array kSingles = std::to_array<DigitsRow>({
    {"pvType", Form::kE4, "0000"},
    {"identSelector", Form::kE2, "01"},
    {"userIdent", Form::kX4, "0000"},
    {"agile", Form::kE2, "01"},
    {"writeLock", Form::kE4, "0999"},
    {"modemVersion", Form::kW4, "0003"},
    {"factoryReset", Form::kE4, "0000"},
    {"backupRestore", Form::kE2, "00"},
    {"sensorMaker", Form::kE2, "00"},
    {"connected", Form::kE2, "01"},
    {"sealType", Form::kE2, "FB"},
    {"sealFluid", Form::kE2, "FB"},
    {"sealMaterial", Form::kE2, "FB"},
    {"sealCount", Form::kE2, "00"},
    {"sensorUnit", Form::kU4, "046D"},
    {"tempUnit", Form::kU4, "03E9"},
    {"linType", Form::kE2, "00"},
    {"inUnit", Form::kU4, "046D"},
    {"outUnit", Form::kU4, "046D"},
    {"volUnit", Form::kU4, "040A"},
    {"simEnable", Form::kE2, "00"},
    {"simValue", Form::kS10, "0000000080"},
    {"debugEnable", Form::kE2, "00"},
    {"tablePoints", Form::kE2, "02"},
    {"tableStatus", Form::kE2, "00"},
    {"compensation", Form::kE2, "00"},
    {"measuredType", Form::kE2, "00"},
    {"mounting", Form::kE2, "01"},
    {"densityRange", Form::kE2, "00"},
    {"polyVersion", Form::kX2, "01"},
    {"operResult", Form::kE2, "10"},
    {"charOperation", Form::kE4, "0000"},
    {"curveLength", Form::kX2, "02"},
    {"zeroFilter", Form::kE2, "00"},
    {"azEnable", Form::kE2, "00"},
    {"azTime", Form::kD8, "0000003C"},
    {"azSelect", Form::kE2, "01"},
    {"aiConfig", Form::kE2, "01"},
    {"lcdSwitch", Form::kE2, "03"},
    {"lcdBar", Form::kE2, "01"},
    {"ai1.channel", Form::kE4, "0112"},
    {"ai2.channel", Form::kE4, "011D"},
    {"ai3.channel", Form::kE4, "011F"},
    {"sensorSerial.hi", Form::kD8, "00003039"},
    {"sensorSerial.lo", Form::kD8, "0000303A"},
});

/// One for each sensor.
constexpr std::array kTwins = std::to_array<DigitsRow>({
    {"snsVersion", Form::kX2, "12"},
    {"initialized", Form::kE2, "AA"},
    {"transducerType", Form::kE4, "006C"},
    {"sensorModel", Form::kE4, "006C"},
    {"sensorType", Form::kE4, "0075"},
    {"range", Form::kE2, "02"},
    {"fluid", Form::kE4, "0001"},
    {"diaphragm", Form::kE4, "0002"},
    {"flangeType", Form::kE2, "0C"},
    {"flangeMaterial", Form::kE2, "02"},
    {"oRing", Form::kE2, "0B"},
    {"snsUnit", Form::kU4, "046D"},
});

/// One for each Analog Input block.
constexpr std::array kOfBlocks = std::to_array<DigitsRow>({
    {"target", Form::kE2, "08"},
    {"damping", Form::kF8, "00000000"},
    {"outScale", Form::kR22, ""},
    {"hiHi", Form::kF8, ""},
    {"hi", Form::kF8, ""},
    {"loLo", Form::kF8, ""},
    {"lo", Form::kF8, ""},
    {"hyst", Form::kF8, ""},
    {"fsType", Form::kE2, "01"},
    {"fsValue", Form::kF8, "00000000"},
    {"sim", Form::kM12, "800000000000"},
});

struct NumberRow {
  std::string_view name;
  double value;
};
// clang-format off
constexpr std::array kNumbers = std::to_array<NumberRow>({
    {"minSpan", 0.374},
    {"sqrtPoint", 10},
    {"cutOff", 5},
    {"debugPressure", 0},
    {"debugTemp", 20},
    {"deadBand", 0},
    {"gravity", 9.80665},
    {"height", 0.5},
    {"dilatation", 0x1p-16},
    {"pressCoeff", 0},
    {"zeroTemp", 20},
    {"heightTemp", 20},
    {"limDensHi", 5},
    {"limDensLo", 0.5},
    {"limTempHi", 100},
    {"limTempLo", 0},
    {"kDens", 1},
    {"kTemp", 20},
    {"solidHi", 100},
    {"solidLo", 0},
    {"solid[0]", -100},
    {"solid[1]", 100},
    {"solid[2]", 0},
    {"solid[3]", 0},
    {"solid[4]", 0},
    {"solid[5]", 0},
    {"tempMax", 100},
    {"tempMin", -40},
    {"calTemp", 20},
    {"gainTemp", 1},
    {"offsetTemp", 0},
    {"densHi", 1.8},
    {"densLo", 0.5},
    {"densPressHi", 8.825985},
    {"densPressLo", 2.4516625},
    {"azRef", 0},
    {"azBand", 0.05},
});
// clang-format on

/// One for the differential pressure and one for each sensor.
constexpr std::array kTriples = std::to_array<NumberRow>({{"calHi", 37.4}, {"calLo", 0}, {"gain", 1}, {"offset", 0}});

struct MonitorRow {
  std::string_view block;
  std::string_view index;
  std::string_view mnemonic;
};
constexpr std::array<MonitorRow, 4> kMonitors{
    {{"03", "000A", "AI1"}, {"01", "0012", "PV"}, {"01", "001B", "TEMP"}, {"01", "0008", "SENSOR"}}};

std::string Floats(std::initializer_list<double> first) {
  std::string digits;
  for (const double value : first) digits += FloatDigits(value);
  return digits.append(128 - digits.size(), '0');
}

void AddTables(ParameterStore& p) {
  for (const auto& row : kSingles) p.Add(std::string(row.name), row.form, std::string(row.digits));
  for (const auto& row : kNumbers) p.Add(std::string(row.name), Form::kF8, FloatDigits(row.value));
  for (const auto& row : kTriples) p.Add(std::string(row.name), Form::kF8, FloatDigits(row.value));
  for (const auto side : kSides) {
    for (const auto& row : kTwins) p.Add(SideName(row.name, side), row.form, std::string(row.digits));
    for (const auto& row : kTriples) p.Add(SideName(row.name, side), Form::kF8, FloatDigits(row.value));
    p.Add(SideName("limHi", side), Form::kF8, FloatDigits(0));
    p.Add(SideName("limLo", side), Form::kF8, FloatDigits(0));
    p.Add(SideName("snsScale", side), Form::kP16, PairDigits(37.4, 0));
    p.Add(SideName("poly", side), Form::kA128, Floats({0, 2.5}));
  }
  for (int block = 1; block <= 3; ++block) {
    for (const auto& row : kOfBlocks) p.Add(BlockName(block, row.name), row.form, std::string(row.digits));
  }
  for (std::size_t i = 0; i < kMonitors.size(); ++i) {
    const std::string prefix = "lcd[" + std::to_string(i + 1) + "].";
    p.Add(prefix + "block", Form::kE2, std::string(kMonitors[i].block));
    p.Add(prefix + "index", Form::kW4, std::string(kMonitors[i].index));
    p.Add(prefix + "element", Form::kX2, "01");
    p.Add(prefix + "mnemonic", Form::kT16, TextDigits(kMonitors[i].mnemonic, 16));
    p.Add(prefix + "point", Form::kE2, "02");
    p.Add(prefix + "alpha", Form::kE2, "01");
  }
}

void AddArrays(ParameterStore& p) {
  for (int i = 1; i <= 21; ++i) p.Add("point[" + std::to_string(i) + "]", Form::kP16, PairDigits(0, 0));
  p.Set("point[2]", PairDigits(100, 100));
  for (int i = 0; i < 18; ++i) p.Add("k[" + std::to_string(i) + "]", Form::kF8, FloatDigits(i == 1 ? 100 : 0));
  p.Add("inScale", Form::kP16, PairDigits(37.4, 0));
  p.Add("outScale", Form::kP16, PairDigits(37.4, 0));
  p.Add("volScale", Form::kP16, PairDigits(10, 0));
  p.Add("curveX", Form::kA128, Floats({0, 37.4}));
  p.Add("curveY", Form::kA128, Floats({0, 37.4}));
}

void AddIdentity(ParameterStore& p, const DeviceSettings& settings) {
  p.Add("tag", Form::kT32, TextDigits(settings.tag, 32));
  p.Add("orderingCode", Form::kT32, TextDigits(settings.orderingCode, 32));
  p.Add("serial", Form::kT16, TextDigits(settings.serialNumber, 16));
  p.Add("firmware", Form::kT16b, TextDigits(settings.firmware, 16, ' '));
  p.Add("maker", Form::kW4, NumberDigits(static_cast<std::uint64_t>(settings.manufacturer), 4));
  if (settings.writeLocked) p.Set("writeLock", "0000");
}

void PutSettings(ParameterStore& p, const DeviceSettings& settings) {
  for (std::size_t sensor = 0; sensor < 2; ++sensor) {
    const auto side = kSides[sensor];
    p.Set(SideName("range", side), NumberDigits(static_cast<std::uint64_t>(settings.sensorRange[sensor]), 2));
    const std::string model = settings.absolute ? "006D" : "006C";
    p.Set(SideName("sensorModel", side), model);
    p.Set(SideName("transducerType", side), model);
    PutSensorLimits(p, sensor, settings.sensorRange[sensor]);
    PutCalibrationPoints(p, side, RangeLimitKilopascal(p.Code(SideName("range", side)), settings.sensorRange[sensor]));
  }
  PutCalibrationPoints(p, "", RangeLimitKilopascal(p.Code("range.hi"), settings.sensorRange[0]));
  p.Set("measuredType", NumberDigits(static_cast<std::uint64_t>(settings.measuredType), 2));
  p.Set("densityRange", NumberDigits(static_cast<std::uint64_t>(settings.densityRange), 2));
  const MeasuredScale points = ScaleOfMeasuredType(settings.measuredType, 0);
  p.SetNumber("densHi", points.upper);
  p.SetNumber("densLo", points.lower);
  p.SetNumber("height", settings.height);
  p.SetNumber("gravity", settings.gravity);
  p.Set("compensation", settings.compensation ? "01" : "00");
}

}  // namespace

ParameterStore StartParameters(const DeviceSettings& settings) {
  ParameterStore p;
  AddTables(p);
  AddArrays(p);
  AddIdentity(p, settings);
  PutSettings(p, settings);
  PutTypeDefaults(p, settings.primaryValueType);
  for (const auto& [name, digits] : settings.parameters) {
    const std::string where = "device.parameters." + name;
    if (!p.Has(name)) throw SettingsError(where + ": there is no parameter of that name");
    if (digits.size() != DigitsOf(p.FormOf(name)) || !IsHexadecimal(digits)) {
      throw SettingsError(where + ": " + std::to_string(DigitsOf(p.FormOf(name))) + " hexadecimal digits are expected");
    }
    p.Set(name, digits);
  }
  return p;
}

}  // namespace htr60::sim

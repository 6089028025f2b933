#include "observe/parameter_words.h"

#include <algorithm>
#include <array>

#include "codecs/mEnumeration.h"

namespace htr60::observe {
namespace {

constexpr std::array kWords = std::to_array<ParameterWords>({
    // identity
    {"pvType", "Primary value type", "", DecodePVType},
    {"tag", "Tag"},
    {"maker", "Manufacturer"},
    {"orderingCode", "Ordering code"},
    {"serial", "Serial number"},
    {"firmware", "Firmware"},
    {"identSelector", "Ident number", "", DecodeIdentNumber},
    {"userIdent", "User ident number"},
    {"agile", "Agile", "", DecodeAgile},
    {"writeLock", "Write protection", "", DecodeWriteProtect},
    {"modemVersion", "Version of the modem"},
    {"snsVersion", "Version of the sensor"},
    {"factoryReset", "Factory reset", "", DecodeFactoryReset},
    {"backupRestore", "Backup and restore", "", DecodeBackupRestore},

    // sensors
    {"sensorMaker", "Sensor manufacturer", "", DecodeSensorManufacturer},
    {"connected", "Sensor connected", "", DecodeSensorConnected},
    {"initialized", "Sensor initialized", "", DecodeSensorInitialized},
    {"transducerType", "Transducer type", "", DecodeTransducerType},
    {"sensorModel", "Sensor model", "", DecodeSensorModel},
    {"sensorType", "Sensor type", "", DecodeSensorType},
    {"range", "Sensor range", "", DecodeSensorRange},
    {"fluid", "Fill fluid", "", DecodeFillFluid},
    {"diaphragm", "Diaphragm material", "", DecodeDiaphragmMaterial},
    {"sensorSerial", "Sensor serial number"},
    {"flangeType", "Flange type", "", DecodeFlangeType},
    {"flangeMaterial", "Flange material", "", DecodeFlangeMaterial},
    {"oRing", "O-ring material", "", DecodeORingMaterial},
    {"sealType", "Remote seal type"},
    {"sealFluid", "Remote seal fluid"},
    {"sealMaterial", "Remote seal material"},
    {"sealCount", "Number of remote seals"},
    {"limHi", "Upper sensor limit", "sensorUnit"},
    {"limLo", "Lower sensor limit", "sensorUnit"},
    {"limHi.in", "Upper sensor limit", "inUnit"},
    {"limLo.in", "Lower sensor limit", "inUnit"},
    {"minSpan", "Minimum span", "sensorUnit"},

    // units and scales
    {"sensorUnit", "Sensor unit"},
    {"tempUnit", "Temperature unit"},
    {"inScale", "Input scale", "inUnit"},
    {"inUnit", "Input unit"},
    {"outScale", "Output scale", "outUnit"},
    {"outUnit", "Output unit"},
    {"volScale", "Volume scale", "volUnit"},
    {"volUnit", "Volume unit"},
    {"snsScale", "Sensor scale", "snsUnit"},
    {"snsUnit", "Sensor scale unit"},
    {"configuration", "Configuration"},

    // what is measured, and how
    {"linType", "Linearization", "", DecodeLinType},
    {"sqrtPoint", "Square root point", "=%"},
    {"cutOff", "Low flow cut off", "=%"},
    {"simEnable", "Simulation of the primary value", "", DecodeSimulateEnable},
    {"simValue", "Simulated primary value", "outUnit"},
    {"debugEnable", "Simulation of pressure and temperature", "", DecodeDebugEnable},
    {"debugPressure", "Simulated pressure", "inUnit"},
    {"debugTemp", "Simulated temperature", "tempUnit"},
    {"tablePoints", "Number of table points"},
    {"point", "Table point", "=%"},
    {"points", "Table points", "=%"},
    {"tableStatus", "Table status", "", DecodeTableStatus},
    {"tableEnable", "Use the table"},
    {"compensation", "Level compensation", "", DecodeCompensation},
    {"deadBand", "Dead band of the compensation", "sensorUnit"},
    {"measuredType", "Measured type", "", DecodeMeasuredType},
    {"mounting", "Mounting", "", DecodePositionMounting},
    {"densityRange", "Density range", "", DecodeDensityRange},
    {"gravity", "Gravity", "=m/s²"},
    {"height", "Height", "=m"},
    {"dilatation", "Linear dilatation", "=1/K"},
    {"pressCoeff", "Pressure coefficient", "=Pa/K"},
    {"zeroTemp", "Temperature of the zero adjustment", "=°C"},
    {"heightTemp", "Temperature of the height", "=°C"},
    {"k", "Coefficient K"},
    {"limDensHi", "Upper density limit"},
    {"limDensLo", "Lower density limit"},
    {"limTempHi", "Upper temperature limit"},
    {"limTempLo", "Lower temperature limit"},
    {"kDens", "Density factor"},
    {"kTemp", "Temperature factor"},
    {"solid", "Solid percent coefficient"},
    {"solidHi", "Upper solid percent limit"},
    {"solidLo", "Lower solid percent limit"},

    // calibration
    {"calHi", "Upper calibration point", "sensorUnit"},
    {"calLo", "Lower calibration point", "sensorUnit"},
    {"tempMax", "Maximum temperature", "tempUnit"},
    {"tempMin", "Minimum temperature", "tempUnit"},
    {"calTemp", "Temperature calibration point", "tempUnit"},
    {"gain", "Pressure gain"},
    {"offset", "Pressure offset", "=kPa"},
    {"gainTemp", "Temperature gain"},
    {"offsetTemp", "Temperature offset", "=K"},
    {"polyVersion", "Version of the coefficients"},
    {"poly", "Coefficients of the sensor"},
    {"densHi", "Upper density point", "outUnit"},
    {"densLo", "Lower density point", "outUnit"},
    {"densPressHi", "Pressure of the upper density point", "inUnit"},
    {"densPressLo", "Pressure of the lower density point", "inUnit"},
    {"operResult", "Calibration result", "", DecodeOperResult},
    {"charOperation", "Characterization", "", DecodeCharOperation},
    {"curveX", "Measured points of the curve", "sensorUnit"},
    {"curveY", "Applied points of the curve", "sensorUnit"},
    {"curveLength", "Number of curve points"},
    {"zeroFilter", "Zero filter", "", DecodeFalseTrue},
    {"azEnable", "Auto zero trim", "", DecodeAzTrimEnable},
    {"azRef", "Auto zero reference", "sensorUnit"},
    {"azBand", "Auto zero noise band", "sensorUnit"},
    {"azTime", "Auto zero time", "=s"},
    {"azSelect", "Auto zero selection", "", DecodeAzTrimSelection},
    {"unused", "Not used"},

    // Analog Input blocks
    {"aiConfig", "AI configuration", "", DecodeAIConfig},
    {"ai.channel", "channel", "", DecodeAIChannel},
    {"ai.target", "target mode", "", DecodeTargetMode},
    {"ai.damping", "damping", "=s"},
    {"ai.outScale", "output scale", "ai.outScale"},
    {"ai.hiHi", "upper alarm limit", "ai.outScale"},
    {"ai.hi", "upper warning limit", "ai.outScale"},
    {"ai.loLo", "lower alarm limit", "ai.outScale"},
    {"ai.lo", "lower warning limit", "ai.outScale"},
    {"ai.hyst", "hysteresis of the limits", "ai.outScale"},
    {"ai.fsType", "fail safe type", "", DecodeFailSafeType},
    {"ai.fsValue", "fail safe value", "ai.outScale"},
    {"ai.sim", "simulation", "ai.pvUnit", DecodeSimulateActive},
    {"ai.out", "output", "ai.outScale"},
    {"ai.mode", "actual mode", "", DecodeActualMode},
    {"ai.alarm", "alarms"},
    {"ai.channelValue", "channel value", "ai.pvUnit"},
    {"ai.pvScale", "input scale", "ai.pvUnit"},
    {"ai.pvUnit", "input unit"},
    {"ai.linType", "linearization"},

    // local display
    {"lcd.block", "block", "", DecodeMonitBlock},
    {"lcd.index", "parameter"},
    {"lcd.element", "element"},
    {"lcd.mnemonic", "mnemonic"},
    {"lcd.point", "decimals", "", DecodeDecimalPoint},
    {"lcd.alpha", "alphanumeric field", "", DecodeAlphaNumField},
    {"lcdSwitch", "Number of monitors", "", DecodeLcdSwitch},
    {"lcdBar", "Bargraph", "", DecodeLcdBargraph},

    // live quantities
    {"@raw", "Differential pressure before the trim", "sensorUnit"},
    {"@trim", "Differential pressure", "sensorUnit"},
    {"@press", "Pressure", "inUnit"},
    {"@p", "Sensor pressure", "sensorUnit"},
    {"@cap", "Sensor reading"},
    {"@t", "Temperature", "tempUnit"},
    {"@pv", "Primary value", "outUnit"},
    {"@sv1", "Secondary value 1", "ai2.pvUnit"},
    {"@sv2", "Secondary value 2", "ai3.pvUnit"},
    {"@weight", "Specific weight", "@weightUnit"},
    {"@pv%", "Primary value", "=%"},
    {"@pressNormal", "Normalized pressure", "=%"},
    {"@linNormal", "Linearized pressure", "=%"},
    {"@curveInput", "Pressure", "sensorUnit"},
    {"@diag", "Sensor diagnosis", "", DecodeSensorDiag},
});

/// Sources of the tables that are another row's.
struct Alias {
  std::string_view source;
  std::string_view meant;
};
constexpr std::array kAliases = std::to_array<Alias>({
    {"@rawStatus", "@raw"},
    {"@pStatus.hi", "@p.hi"},
    {"@pStatus.lo", "@p.lo"},
    {"@capStatus.hi", "@cap.hi"},
    {"@capStatus.lo", "@cap.lo"},
    {"@ai1.out", "ai1.out"},
    {"@ai2.out", "ai2.out"},
    {"@ai3.out", "ai3.out"},
    {"@out", "ai.out"},
    {"@mode", "ai.mode"},
    {"@alarm", "ai.alarm"},
    {"@channel", "ai.channelValue"},
    {"@pvScale", "ai.pvScale"},
    {"@pvUnit", "ai.pvUnit"},
    {"@pvUnitScale", "ai.pvUnit"},
    {"@limHi.in", "limHi.in"},
    {"@limLo.in", "limLo.in"},
    {"@connected", "connected"},
    {"@initialized", "initialized"},
    {"=00", "ai.linType"},
});

const ParameterWords* Find(std::string_view source) {
  const auto* const row =
      std::find_if(kWords.begin(), kWords.end(), [&](const ParameterWords& r) { return r.source == source; });
  return row == kWords.end() ? nullptr : row;
}

std::string_view Meant(std::string_view source) {
  for (const Alias& alias : kAliases) {
    if (alias.source == source) return alias.meant;
  }
  return source;
}

/// Takes "1." or "[1]" off the front; `number` stays where there is none.
std::string_view TakeNumber(std::string_view text, int& number) {
  if (!text.empty() && text.front() >= '1' && text.front() <= '9') {
    number = text.front() - '0';
    return text.substr(1);
  }
  if (text.size() > 3 && text.front() == '[' && text[2] == ']') {
    number = text[1] - '0';
    return text.substr(3);
  }
  return text;
}

}  // namespace

ParameterName NameParameter(std::string_view source, int block, int monitor) {
  source = Meant(source);
  ParameterName found;
  found.full = source;
  if (const ParameterWords* row = Find(source);
      row != nullptr && !source.starts_with("ai.") && !source.starts_with("lcd.")) {
    found.row = row;
    found.name = row->words;
    return found;
  }
  const bool isBlock = source.starts_with("ai");
  if (isBlock || source.starts_with("lcd")) {
    const std::string_view family = isBlock ? "ai" : "lcd";
    int number = isBlock ? block : monitor;
    const std::string rest(TakeNumber(source.substr(family.size()), number));  // ".damping"
    const std::string digit = std::to_string(number);
    found.row = Find(std::string(family) + rest);
    if (found.row == nullptr) return found;
    found.name = (isBlock ? "AI " : "Monitor ") + digit + " " + std::string(found.row->words);
    found.full = isBlock ? "ai" + digit + rest : "lcd[" + digit + "]" + rest;
    return found;
  }
  std::string_view base = source;
  std::string_view after;
  if (base.ends_with(".hi")) after = ", sensor 1";
  if (base.ends_with(".lo")) after = ", sensor 2";
  if (!after.empty()) base.remove_suffix(3);
  std::string index;
  if (base.ends_with("]")) {
    const std::size_t at = base.find('[');
    index = " " + std::string(base.substr(at + 1, base.size() - at - 2));
    base = base.substr(0, at);
  }
  found.row = Find(base);
  if (found.row != nullptr) found.name = std::string(found.row->words).append(index).append(after);
  return found;
}

}  // namespace htr60::observe

#include <algorithm>
#include <array>
#include <iterator>

#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/unit_tables.h"
#include "pages/analog_input.h"
#include "pages/answered_values.h"
#include "pages/calibration_units.h"

// The tab "Scales" of the Analog Input pages. Which scale stands on the side of the primary value depends on the block,
// the type, the firmware and the configuration.
namespace htr60::pages::analog_input_scales {
namespace {

using analog_input::Block;
using analog_input::SelectBlock;

constexpr std::string_view kSecondBlock = "Analog Input 2";
constexpr std::string_view kThirdBlock = "Analog Input 3";
constexpr std::string_view kDensityUnit = "Kg/M3";  // in none of the lists of units: it is spelled so here alone
constexpr std::string_view kTemperatureUnit = "°C";

struct PlainScale {
  std::string_view upper;
  std::string_view lower;
};
constexpr PlainScale kCompensatedLevel{"100", "0"};
constexpr PlainScale kTemperature{"110", "-10"};

struct DensityScale {
  std::string_view range;
  PlainScale scale;
};
constexpr DensityScale kDensityScales[] = {
    {"Range 1 (0.5 @ 1.8 g/cm³)", {"1800", "500"}},
    {"Range 2 (1.0 @ 2.5 g/cm³)", {"2500", "1000"}},
    {"Range 3 (2.0 @ 5.0 g/cm³)", {"5000", "2500"}},
};

struct SensorScale {
  std::string_view scale;
  std::string_view unit;
};
constexpr SensorScale kHiSensor{"TrdScaleSnsHi", "TrdScaleSnsHiUnit"};
constexpr SensorScale kLoSensor{"TrdScaleSnsLo", "TrdScaleSnsLoUnit"};

bool IsSecondary(const UserCntrl& c) { return c.CurrentPage == kSecondBlock || c.CurrentPage == kThirdBlock; }

void SetIfAny(TextField& field, std::string_view text) {
  if (!text.empty()) field.SetText(text);
}

void ShowPlain(UserCntrl& c, const PlainScale& scale) {
  c.form.txtParameter(64).SetText(scale.upper);
  c.form.txtParameter(63).SetText(scale.lower);
}

void ShowDensity(UserCntrl& c, const PlainScale& scale) {
  ShowPlain(c, scale);
  c.form.txtParameter(302).SetText(kDensityUnit);
}

void TakePair(UserCntrl& c, std::string_view hex) {
  c.codecs.HexToFloatPair(hex, c.form.txtParameter(64), c.form.txtParameter(63));
}

void TakeSensor(UserCntrl& c, const Answer& a, const SensorScale& sensor) {
  TakePair(c, a.Text(sensor.scale));
  c.form.cmbTRDScaleAI.SetIfAny(UnitCodeToText(a.Word(sensor.unit)));
}

/// Only a block that reports a sensor's pressure has a scale that can be written.
void AllowPvScale(UserCntrl& c, bool allowed) {
  Form& f = c.form;
  f.txtParameter(64).SetEnabled(allowed);
  f.txtParameter(63).SetEnabled(allowed);
  const auto show = [allowed](Control& control) {
    control.SetVisible(allowed);
    control.SetEnabled(allowed);
  };
  show(f.cmbTRDScaleAI);
  show(f.cmbWritePVScale);
  show(f.cmbWritePVScaleUnit);
}

// The configuration says which sensor the second block reports; the third has the other one, or the temperature.
void TakeConfigured(UserCntrl& c, const Answer& a) {
  c.form.cmbAIConfig.SetIfAny(DecodeAIConfig(a.Number("AIConfig")));
  const bool first = c.form.cmbAIConfig.Text() == "Config 1";
  if (c.CurrentPage == kSecondBlock) return TakeSensor(c, a, first ? kHiSensor : kLoSensor);
  if (first) return TakeSensor(c, a, kLoSensor);
  ShowPlain(c, kTemperature);
  c.form.txtParameter(302).SetText(kTemperatureUnit);
  c.form.cmbTRDScaleAI.SetText(kTemperatureUnit);
}

// Firmware before 1.04 reports no scale of the sensors: the panel stays empty.
void TakeOfSensors(UserCntrl& c, const Answer& a) {
  if (c.FwFlag107 != kClear) return TakeConfigured(c, a);
  if (c.FwFlag104 == kClear) return;
  TakeSensor(c, a, c.CurrentPage == kSecondBlock ? kHiSensor : kLoSensor);
}

/// Whether the device tells no scale and the page knows it by itself.
bool ShowKnown(UserCntrl& c, std::string_view range) {
  const bool third = c.CurrentPage == kThirdBlock;
  if (third && c.AiPvType == "Level") {
    // Without compensation the device names no unit, and the block reports the temperature. A unit left from another
    // block counts as one.
    if (c.form.txtParameter(302).Text().empty()) {
      ShowPlain(c, kTemperature);
    } else {
      ShowDensity(c, kCompensatedLevel);
    }
    return true;
  }
  if (third && c.AiPvType == "Flow") {
    ShowPlain(c, kTemperature);
    return true;
  }
  if (!IsSecondary(c) || c.AiPvType != "Density") return false;
  const auto known = std::find_if(std::begin(kDensityScales), std::end(kDensityScales),
                                  [&](const DensityScale& row) { return row.range == range; });
  if (known == std::end(kDensityScales)) return false;
  ShowDensity(c, known->scale);
  return true;
}

void OnScalesAnswer(UserCntrl& c, const Answer& a) {
  Form& f = c.form;
  if (const std::string_view type = DecodePVType(a.Number("TRDPVType")); !type.empty()) c.AiPvType = type;
  const std::string_view range = DecodeDensityRange(a.Number("TrdHTRRange"));
  const std::string_view unit = TakeScale(c, a.Text("AIScaleOutput"));
  f.cmbAIUnitOutScale.SetIfAny(unit);
  analog_input::SetOutputUnit(c, unit);
  const bool ofSensor = IsSecondary(c) && c.AiPvType == "Pressure";
  SetIfAny(f.txtParameter(302), ofSensor ? TakeScale(c, a.Text("PVUnitScale")) : UnitCodeToText(a.Word("PVUnitScale")));
  f.txtParameter(64).SetText("");
  f.txtParameter(63).SetText("");
  AllowPvScale(c, ofSensor && c.FwFlag107 != kClear);
  if (ofSensor) return TakeOfSensors(c, a);
  if (ShowKnown(c, range)) return;
  TakePair(c, a.Text("PVScale"));
  SetIfAny(f.txtParameter(302), UnitCodeToText(a.Word("PVUnitScale")));
}

// ---- the tab's own write buttons

// The configuration goes as its text; firmware without one takes the number that stands for none.
std::string_view Configuration(const UserCntrl& c) {
  return c.FwFlag107 != kClear ? std::string_view(c.form.cmbAIConfig.Text()) : std::string_view("255");
}

void WritePvScale(UserCntrl& c) {
  Form& f = c.form;
  SelectBlock(c);
  c.SmallWrite(
      73,
      {Block(c), Join({c.codecs.FloatToHex(f.txtParameter(64).Text()), c.codecs.FloatToHex(f.txtParameter(63).Text())}),
       Configuration(c)});
}

void WritePvUnit(UserCntrl& c) {
  SelectBlock(c);
  c.SmallWrite(74, {Block(c), UnitTextToCode(c.form.cmbTRDScaleAI.Text()), Configuration(c)});
}

void WriteOutScale(UserCntrl& c) {
  Form& f = c.form;
  SelectBlock(c);
  c.SmallWrite(75, {Block(c), Join({c.codecs.FloatToHex(f.txtParameter(129).Text()),
                                    c.codecs.FloatToHex(f.txtParameter(130).Text()),
                                    UnitTextToCode(f.cmbAIUnitOutScale.Text()), "00"})});
}

// The pressure units and, for a block that reports the temperature, its unit.
constexpr auto kScaleUnits = [] {
  std::array<std::string_view, std::size(kCalibrationUnits) + 1> rows{};
  std::copy(std::begin(kCalibrationUnits), std::end(kCalibrationUnits), rows.begin());
  rows.back() = kTemperatureUnit;
  return rows;
}();

constexpr AnswerRow kAnswers[] = {{analog_input::kScalesRead * 100, OnScalesAnswer}};
constexpr ButtonRow kButtons[] = {
    {id::cmbWritePVScale, WritePvScale},
    {id::cmbWritePVScaleUnit, WritePvUnit},
    {id::cmdWriteScaleOut, WriteOutScale},
};
constexpr FillRow kFills[] = {
    {id::cmbAIUnitOutScale, &UserCntrl::FirstVisitAi, kUnitListRows},
    {id::cmbTRDScaleAI, &UserCntrl::FirstVisitAi, kScaleUnits},
};

}  // namespace

constexpr PageUnit kUnit{.answers = kAnswers, .buttons = kButtons, .fills = kFills};

}  // namespace htr60::pages::analog_input_scales

#pragma once

#include <array>
#include <string>
#include <string_view>

#include "codecs/mEnumeration.h"
#include "codecs/mStatusProfibus.h"
#include "pages/common_notes.h"
#include "shell/user_cntrl.h"

/// What the settings pages of the measurement types have twice, once for each page's own controls.
namespace htr60::pages {

/// Rows of the lists of primary value types, one on each of four pages.
inline constexpr std::string_view kPrimaryValueTypes[] = {"Pressure", "Flow", "Level", "Density"};

/// Sets the list to the type that the device has, and tells the operator where the page is not for that type.
inline void TakePrimaryValueType(UserCntrl& c, const Answer& a, ChoiceId list, std::string_view pageType) {
  ChoiceList& shown = c.form.At(list);
  shown.SetIfAny(DecodePVType(a.Number("TRDPVType")));
  if (shown.Text() == pageType) return;
  c.ShowBox("Please, note that HTR60 is not configured to " + std::string(pageType) + " measurement.",
            "Primary Value Type");
}

/// Linearizations of the types that know no square root.
inline constexpr std::string_view kTableLinearizations[] = {"No Linearization.", "User Defined(Table)"};
// Only the page of pressure and flow opens the table.
inline constexpr std::string_view kTableLinearizationNote =
    "Whether the value goes through the table of points. The points can be entered with type Pressure or Flow; until "
    "a table is accepted the device refuses this choice.";

/// The simulation of the transducer's value.
struct SimulateFields {
  ChoiceId enable;
  TextId value;
  ChoiceId status;
};

constexpr std::array<LayoutRow, 3> SimulateRows(const SimulateFields& fields) {
  return {{
      {.caption = "Simulate Enable",
       .kind = RowKind::kList,
       .control = fields.enable,
       .note = "While enabled, value and status replace what is measured.",
       .role = RowRole::kSimulate,
       .health = HealthItem::kSimulateValue},
      {.caption = "Value",
       .kind = RowKind::kNum,
       .control = fields.value,
       .note = "Stands for the measured value while simulation is enabled. No unit is reported."},
      {.caption = "Status",
       .kind = RowKind::kList,
       .control = fields.status,
       .width = WidthClass::kW,
       .note = "Status that the simulated value bears. Written together with it."},
  }};
}

inline void TakeSimulate(UserCntrl& c, const Answer& a, const SimulateFields& fields) {
  c.form.At(fields.enable).SetIfAny(DecodeSimulateEnable(a.Number("TRDSimulateEnable")));
  std::int32_t status = 0;
  c.codecs.HexToFloatStatus(a.Text("TRDSimulateValue"), c.form.At(fields.value), status);
  c.form.At(fields.status).SetText(StatusByteToText(status));
}

inline Operands SimulateOperands(UserCntrl& c, const SimulateFields& fields) {
  return {
      EncodeSimulateEnable(c.form.At(fields.enable).Text()),
      Join({c.codecs.FloatToHex(c.form.At(fields.value).Text()), StatusTextToHex(c.form.At(fields.status).Text())})};
}

/// The live values of the tab "Sensor Value"; one answer fills both pages.
struct SensorValueFields {
  LabelId message;
  TextId diag;
  TextId deltaPress;
  LabelId deltaPressUnit;
  TextId hi;
  LabelId hiUnit;
  TextId hiStatus;
  TextId lo;
  LabelId loUnit;
  TextId primaryValue;
  LabelId primaryValueUnit;
  TextId primaryValueStatus;
  TextId weight;
  TextId temperature;
  LabelId temperatureUnit;
};

constexpr LayoutRow LiveValue(std::string_view caption, TextId value, LayoutUnit unit = {},
                              std::string_view note = {}) {
  return {.caption = caption, .kind = RowKind::kValue, .control = value, .unit = unit, .note = note, .live = true};
}

constexpr LayoutRow WithStatus(LayoutRow row, TextId status, std::string_view note,
                               HealthItem health = HealthItem::kNone) {
  row.second = status;
  row.secondNote = note;
  row.health = health;
  return row;
}

constexpr std::array<LayoutRow, 8> SensorValueRows(const SensorValueFields& f) {
  return {{
      {.kind = RowKind::kMsg,
       .control = f.message,
       .note = "Shown while a sensor reads above 9000.",
       .live = true,
       .health = HealthItem::kSensorBoard},
      {.caption = "Sensor Diag",
       .kind = RowKind::kStatus,
       .control = f.diag,
       .note = kSensorDiagNote,
       .live = true,
       .role = RowRole::kVerdict,
       .health = HealthItem::kSensorDiag},
      LiveValue("Delta Press", f.deltaPress, ControlId{f.deltaPressUnit}),
      WithStatus(LiveValue("Hi Value", f.hi, ControlId{f.hiUnit}, kReadingNote), f.hiStatus, kReadingStatusNote),
      LiveValue("Lo Value", f.lo, ControlId{f.loUnit}, kReadingWithoutStatusNote),
      WithStatus(LiveValue("Primary Value", f.primaryValue, ControlId{f.primaryValueUnit}, kPrimaryValueNote),
                 f.primaryValueStatus, kPrimaryValueStatusNote, HealthItem::kPrimaryValue),
      LiveValue("Specific Weight", f.weight),
      LiveValue("Temp.", f.temperature, ControlId{f.temperatureUnit}),
  }};
}

}  // namespace htr60::pages

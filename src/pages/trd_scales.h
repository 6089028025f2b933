#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "pages/calibration_units.h"
#include "shell/user_cntrl.h"

/// What the pages on the two shared scale frames have in common: rows of units, opening, answer, operands.
namespace htr60::pages::trd_scales {

/// The rows of an input scale: the pressure units without "mH2O". An output scale has all 18.
inline constexpr std::array<std::string_view, 17> kInputPressureUnits = [] {
  std::array<std::string_view, 17> rows{};
  std::size_t count = 0;
  for (const std::string_view unit : kCalibrationUnits) {
    if (unit != "mH2O") rows[count++] = unit;
  }
  return rows;
}();

inline constexpr std::string_view kPressureCaption = "Pressure Unit (EU)";

/// A page on `frmTRDInputScale`.
struct InputScale {
  std::string_view page;
  std::string_view caption{};  ///< of the scale's group; empty: it keeps its own
  std::string_view unitCaption = kPressureCaption;
  std::span<const std::string_view> units = kInputPressureUnits;
  bool limits = true;  ///< the sensor limits are shown
  int read = 6;
};

/// Opens the page with the list filled anew, Back and Write enabled, and reads.
void OpenInputScale(UserCntrl& c, const InputScale& scale);

/// The part that answers 600, 6100 and 6700 share: `TRDInputScale` and `TRDPressUnit`. Returns the unit's text.
std::string_view TakeInputScale(UserCntrl& c, const Answer& a);

/// Operands of writes 3, 49 and 57: both limits of the scale in one record, unit.
Operands InputScaleOperands(UserCntrl& c);

/// How the groups of `frmTRDOutputScale` stand.
struct OutputGroups {
  std::span<const std::string_view> units;
  bool limits = false;        ///< the group of the sensor limits is shown
  bool measureFirst = false;  ///< the group of the measure type stands above that of the sensor limits
};

/// Fills the list of output units and sets the groups' places.
void ArrangeOutputScale(UserCntrl& c, const OutputGroups& groups);

/// A page on `frmTRDOutputScale`.
struct OutputScale {
  std::string_view page;
  std::string_view caption;      ///< of the scale's group
  std::string_view unitCaption;  ///< of the unit's group
  bool editable = true;          ///< scale and unit, with their two write buttons
  bool measureType = false;      ///< the group of the measure type is shown
  int read = 7;
};

/// Opens the page with Back enabled and Write disabled, and reads. `groups`: null leaves list and groups as they are.
void OpenOutputScale(UserCntrl& c, const OutputScale& scale, const OutputGroups* groups);

/// The steps that answers 700, 6200 and 6800 share, from the four texts set to 1 to the ratio in `txtParameter(200)`.
void TakeOutputScale(UserCntrl& c, const Answer& a);

/// A sensor limit of answers 6200 and 6800: as it is into `raw`, times the ratio into `shown`.
void TakeConvertedLimit(UserCntrl& c, double limit, TextField& raw, TextField& shown);

/// The last step of answers 700 and 6800: consumes `CheckOutScaleAfterWrite`.
void CheckOutputScale(UserCntrl& c);

/// Operands of writes 4, 42 and 50: both limits of the scale in one record, unit.
Operands OutputScaleOperands(UserCntrl& c);

/// The way back to the pressure and flow settings.
inline constexpr BackTarget kToTrdSettings{
    .page = "TRD Settings", .subPage = "TRD Settings", .frame = id::frmTRDSettings};

}  // namespace htr60::pages::trd_scales

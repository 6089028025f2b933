#include <algorithm>
#include <iterator>

#include "shell/guard.h"
#include "shell/user_cntrl.h"

namespace htr60 {
namespace {

struct UnitFactor {
  std::string_view unit;
  double factor;
};

// Amount of the unit in one inH2O at 68 °F. The last one's digits are those of the stored number.
constexpr UnitFactor kFactors[] = {
    {"Pa", 248.642},           {"MPa", 0.000248642},      {"kPa", 0.248642},
    {"bar", 0.00248642},       {"mbar", 2.48642},         {"torr", 1.86497},
    {"atm", 0.00245391},       {"psi", 0.0360625},        {"g/cm²", 2.53545},
    {"kg/cm²", 0.00253545},    {"inH2O (4°C)", 0.998205}, {"inH2O (68°F)", 1.0},
    {"mmH2O (4°C)", 25.3545},  {"mmH2O (68°F)", 25.4},    {"ftH2O (68°F)", 0.0833333},
    {"inHg (0°C)", 0.0734241}, {"mmHg (0°C)", 1.86497},   {"mH2O", 0.02535450000025757},
};

double FactorOf(std::string_view unit) {
  const auto* row = std::find_if(std::begin(kFactors), std::end(kFactors),
                                 [&](const UnitFactor& candidate) { return candidate.unit == unit; });
  return row == std::end(kFactors) ? 1.0 : row->factor;
}

}  // namespace

void UserCntrl::GetFactor1Unit(std::string_view Kvalue) noexcept {
  Guarded([&] { form.txtParameter(197).SetText(codecs.NumberToText(FactorOf(Kvalue))); });
}

void UserCntrl::GetFactor2Unit(std::string_view Kvalue) noexcept {
  Guarded([&] { form.txtParameter(198).SetText(codecs.NumberToText(FactorOf(Kvalue))); });
}

}  // namespace htr60

#include <array>

#include "simulator/device/reads.h"
#include "simulator/device/units.h"

namespace htr60::sim {
namespace {

struct Context {
  const Device& device;
  int block;
};

double Pascal(const Context& c, std::string_view unit) { return PascalPer(c.device.Code(unit)); }

Quantified InSensorUnit(const Device& d, double pascal, unsigned status) {
  return {pascal / PascalPer(d.Code("sensorUnit")), d.Digits("sensorUnit"), status};
}

Quantified OfChannel(const Device& d, int block) {
  const BlockInput channel = d.Channel(block);
  const PvScale scale = PvScaleOf(d.Parameters(), block);
  return {channel.value, scale.unit == kUnitNone ? std::string() : scale.unit, channel.status};
}

Quantified OfOutput(const Device& d, int block) {
  return {d.BlockAt(block).Out(), d.Digits(BlockName(block, "outScale")).substr(16, 4), d.BlockAt(block).Status()};
}

template <std::size_t sensor>
Quantified SensorPressure(const Device& d) {
  return InSensorUnit(d, d.Now().sensors[sensor].p, d.Now().sensors[sensor].status);
}

template <std::size_t sensor>
Quantified Reading(const Device& d) {
  return {d.Now().sensors[sensor].cap, "", d.Now().sensors[sensor].status};
}

template <int block>
Quantified Output(const Device& d) {
  return OfOutput(d, block);
}

template <int block>
Quantified ChannelValue(const Device& d) {
  return OfChannel(d, block);
}

Quantified Weight(const Device& d) {
  const bool density = d.IsType(kDensity);
  return {d.Now().weight, density ? d.Digits("outUnit") : "044C", density ? d.Now().pvStatus : d.Now().pressStatus};
}

Quantified Temperature(const Device& d) {
  return {FromCelsius(d.Now().t, d.Code("tempUnit")), d.Digits("tempUnit"), d.Now().tStatus};
}

struct QuantityRow {
  std::string_view name;
  Quantified (*value)(const Device&);
};
constexpr std::array kQuantityRows = std::to_array<QuantityRow>({
    {"raw", [](const Device& d) { return InSensorUnit(d, d.Now().raw, d.Now().dpStatus); }},
    {"trim", [](const Device& d) { return InSensorUnit(d, d.Now().trim, d.Now().dpStatus); }},
    {"press",
     [](const Device& d) {
       return Quantified{d.Now().press / PascalPer(d.Code("inUnit")), d.Digits("inUnit"), d.Now().pressStatus};
     }},
    {"p.hi", SensorPressure<0>},
    {"p.lo", SensorPressure<1>},
    {"cap.hi", Reading<0>},
    {"cap.lo", Reading<1>},
    {"t", Temperature},
    {"pv",
     [](const Device& d) {
       return Quantified{d.Now().pv, d.Digits("outUnit"), d.Now().pvStatus};
     }},
    {"sv1", ChannelValue<2>},
    {"sv2", ChannelValue<3>},
    {"weight", Weight},
    {"diag",
     [](const Device& d) {
       return Quantified{static_cast<double>(d.Now().diag), "", kStatusGood};
     }},
    {"pv%",
     [](const Device& d) {
       return Quantified{d.Now().pvPercent, "053E", d.Now().pvStatus};
     }},
    {"pressNormal",
     [](const Device& d) {
       return Quantified{d.Now().pressNormal, "053E", d.Now().pressStatus};
     }},
    {"linNormal",
     [](const Device& d) {
       return Quantified{d.Now().linNormal, "053E", d.Now().baseStatus};
     }},
    {"ai1.out", Output<1>},
    {"ai2.out", Output<2>},
    {"ai3.out", Output<3>},
    {"densGain",
     [](const Device& d) {
       return Quantified{d.Trim().densGain, "", kStatusGood};
     }},
    {"densOffset",
     [](const Device& d) {
       return Quantified{d.Trim().densOffset, "0449", kStatusGood};
     }},
});

/// Live quantities that travel with their status, and those that travel without.
struct Traveller {
  std::string_view source;
  std::string_view quantity;
  bool withStatus;
};
constexpr std::array kTravellers = std::to_array<Traveller>({
    {"raw", "raw", false},
    {"rawStatus", "raw", true},
    {"trim", "trim", true},
    {"press", "press", true},
    {"p.hi", "p.hi", false},
    {"p.lo", "p.lo", false},
    {"pStatus.hi", "p.hi", true},
    {"pStatus.lo", "p.lo", true},
    {"cap.hi", "cap.hi", false},
    {"cap.lo", "cap.lo", false},
    {"capStatus.hi", "cap.hi", true},
    {"capStatus.lo", "cap.lo", true},
    {"t", "t", true},
    {"pv", "pv", true},
    {"sv1", "sv1", true},
    {"sv2", "sv2", true},
    {"weight", "weight", true},
    {"ai1.out", "ai1.out", true},
    {"ai2.out", "ai2.out", true},
    {"ai3.out", "ai3.out", true},
    {"pv%", "pv%", false},
    {"pressNormal", "pressNormal", false},
    {"linNormal", "linNormal", false},
});

std::string Travelling(const Quantified& q, bool withStatus) {
  return withStatus ? ValueStatusDigits(q.value, q.status) : FloatDigits(q.value);
}

std::string LimitInInputUnit(const Context& c, std::string_view limit) {
  return FloatDigits(c.device.Number(limit) * Pascal(c, "sensorUnit") / Pascal(c, "inUnit"));
}

bool SensorBlockOfPressure(const Context& c) { return c.device.IsType(kPressure) && c.block != 1; }

std::string PvUnit(const Context& c) {
  const PvScale scale = PvScaleOf(c.device.Parameters(), c.block);
  return SensorBlockOfPressure(c) ? ScaleDigits(scale.upper, scale.lower, scale.unit) : scale.unit;
}

/// The control puts these values into the fields of the output scale, so they repeat it.
std::string PvUnitScale(const Context& c) {
  const PvScale scale = PvScaleOf(c.device.Parameters(), c.block);
  if (!SensorBlockOfPressure(c)) return scale.unit;
  return c.device.Digits(BlockName(c.block, "outScale")).substr(0, 16) + scale.unit + "00";
}

std::string Alarms(const Context& c) {
  const std::string word = NumberDigits(c.device.BlockAt(c.block).Alarms(), 4);
  return word + word + "00000000";
}

struct DerivedRow {
  std::string_view name;
  std::string (*digits)(const Context&);
};
constexpr std::array kDerived = std::to_array<DerivedRow>({
    {"limHi.in", [](const Context& c) { return LimitInInputUnit(c, "limHi.hi"); }},
    {"limLo.in", [](const Context& c) { return LimitInInputUnit(c, "limLo.hi"); }},
    {"mode", [](const Context& c) { return c.device.Digits(BlockName(c.block, "target")) + "9808"; }},
    {"alarm", Alarms},
    {"out", [](const Context& c) { return Travelling(OfOutput(c.device, c.block), true); }},
    {"channel", [](const Context& c) { return Travelling(OfChannel(c.device, c.block), true); }},
    {"pvScale",
     [](const Context& c) {
       const PvScale scale = PvScaleOf(c.device.Parameters(), c.block);
       return PairDigits(scale.upper, scale.lower);
     }},
    {"pvUnit", PvUnit},
    {"pvUnitScale", PvUnitScale},
    {"curveInput",
     [](const Context& c) {
       return Travelling(*LiveQuantity(c.device, c.device.enteringCurve ? "raw" : "trim"), true);
     }},
    {"diag", [](const Context& c) { return NumberDigits(c.device.Now().diag, 2); }},
    {"connected",
     [](const Context& c) { return c.device.Now().diag == 3 ? std::string("00") : c.device.Digits("connected"); }},
    {"initialized",
     [](const Context& c) {
       const bool both = c.device.Code("initialized.hi") == 0xAA && c.device.Code("initialized.lo") == 0xAA;
       return std::string(both ? "AA" : "00");
     }},
});

}  // namespace

std::optional<Quantified> LiveQuantity(const Device& device, std::string_view name) {
  for (const auto& row : kQuantityRows) {
    if (row.name == name) return row.value(device);
  }
  return std::nullopt;
}

std::string DerivedDigits(const Device& device, std::string_view name, const ReadOperands& operands) {
  for (const auto& row : kTravellers) {
    if (row.source == name) return Travelling(*LiveQuantity(device, row.quantity), row.withStatus);
  }
  const Context context{device, BlockNumber(operands.block)};
  for (const auto& row : kDerived) {
    if (row.name == name) return row.digits(context);
  }
  return {};
}

}  // namespace htr60::sim

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "simulator/device/reads.h"

namespace htr60::sim {
namespace {

enum class Home : std::uint8_t { kTransducer, kAnalogInput, kPhysical, kAll };

struct MonitoredRow {
  Home home;
  std::string_view name;
  Form form;
  std::string_view source;  ///< as in the read table, or digits after "="
};

using enum Form;
constexpr std::array kMonitored = std::to_array<MonitoredRow>({
    {Home::kTransducer, "Sensor Value", kF8, "@raw"},
    {Home::kTransducer, "Cal Point Hi", kF8, "calHi"},
    {Home::kTransducer, "Cal Point Lo", kF8, "calLo"},
    {Home::kTransducer, "Primary Value", kS10, "@pv"},
    {Home::kTransducer, "Temperature", kS10, "@t"},
    {Home::kTransducer, "Secondary Value 1", kS10, "@sv1"},
    {Home::kTransducer, "Secondary Value 2", kS10, "@sv2"},
    {Home::kTransducer, "Press Normal", kF8, "@pressNormal"},
    {Home::kTransducer, "Press Lin Normal", kF8, "@linNormal"},
    {Home::kTransducer, "PV%", kF8, "@pv%"},
    {Home::kTransducer, "Scale In", kP16, "inScale"},
    {Home::kTransducer, "Scale Out", kP16, "outScale"},
    {Home::kTransducer, "Low Flow Cut Off", kF8, "cutOff"},
    {Home::kTransducer, "Flow Lin Sqrt Point", kF8, "sqrtPoint"},
    {Home::kTransducer, "Cal Temperature", kF8, "calTemp"},
    {Home::kTransducer, "Sensor Unit", kU4, "sensorUnit"},
    {Home::kTransducer, "Primary Value Unit", kU4, "outUnit"},
    {Home::kTransducer, "Temperature Unit", kU4, "tempUnit"},
    {Home::kTransducer, "Linearization Type", kE2, "linType"},
    {Home::kTransducer, "Backup Restore", kE2, "backupRestore"},
    {Home::kAnalogInput, "Out", kS10, "@out"},
    {Home::kAnalogInput, "PV Scale", kP16, "@pvScale"},
    {Home::kAnalogInput, "Out Scale", kR22, "ai.outScale"},
    {Home::kAnalogInput, "L Type", kE2, "=00"},
    {Home::kAnalogInput, "Channel", kE4, "ai.channel"},
    {Home::kAnalogInput, "PV FTime", kF8, "ai.damping"},
    {Home::kAnalogInput, "FSafe Value", kF8, "ai.fsValue"},
    {Home::kAnalogInput, "Alarm Hys", kF8, "ai.hyst"},
    {Home::kAnalogInput, "Hi Hi Lim", kF8, "ai.hiHi"},
    {Home::kAnalogInput, "Hi Lim", kF8, "ai.hi"},
    {Home::kAnalogInput, "Lo Lim", kF8, "ai.lo"},
    {Home::kAnalogInput, "Lo Lo Lim", kF8, "ai.loLo"},
    {Home::kAnalogInput, "FSafe Type", kE2, "ai.fsType"},
    {Home::kAnalogInput, "Simulate", kM12, "ai.sim"},
    {Home::kPhysical, "Write Locking", kE4, "writeLock"},
    {Home::kPhysical, "Factory Reset", kE4, "factoryReset"},
    {Home::kPhysical, "Ident. Number Select", kE2, "identSelector"},
    {Home::kAll, "Target Mode", kE2, "ai.target"},
    {Home::kAll, "Mode Block", kB6, "@mode"},
});

struct BlockRow {
  std::string_view name;
  Home home;
  std::string_view operand;
  int lcdCode;
};
constexpr std::array<BlockRow, 5> kBlocks{{{"Physical", Home::kPhysical, "1", 0},
                                           {"Transducer", Home::kTransducer, "1", 1},
                                           {"Analog Input 1", Home::kAnalogInput, "1", 3},
                                           {"Analog Input 2", Home::kAnalogInput, "2", 4},
                                           {"Analog Input 3", Home::kAnalogInput, "3", 5}}};

/// Names by relative index as a monitor counts them; the home is the block that has the row.
struct IndexRow {
  Home home;
  int index;
  std::string_view name;
};
constexpr std::array kIndexes = std::to_array<IndexRow>({
    {Home::kAll, 5, "Target Mode"},
    {Home::kAll, 6, "Mode Block"},
    {Home::kTransducer, 8, "Sensor Value"},
    {Home::kAnalogInput, 10, "Out"},
    {Home::kTransducer, 11, "Cal Point Hi"},
    {Home::kAnalogInput, 11, "PV Scale"},
    {Home::kTransducer, 12, "Cal Point Lo"},
    {Home::kAnalogInput, 12, "Out Scale"},
    {Home::kAnalogInput, 13, "L Type"},
    {Home::kTransducer, 14, "Sensor Unit"},
    {Home::kAnalogInput, 14, "Channel"},
    {Home::kAnalogInput, 16, "PV FTime"},
    {Home::kAnalogInput, 17, "FSafe Type"},
    {Home::kTransducer, 18, "Primary Value"},
    {Home::kAnalogInput, 18, "FSafe Value"},
    {Home::kPhysical, 18, "Write Locking"},
    {Home::kTransducer, 19, "Primary Value Unit"},
    {Home::kAnalogInput, 19, "Alarm Hys"},
    {Home::kPhysical, 19, "Factory Reset"},
    {Home::kAnalogInput, 21, "Hi Hi Lim"},
    {Home::kAnalogInput, 23, "Hi Lim"},
    {Home::kPhysical, 24, "Ident. Number Select"},
    {Home::kAnalogInput, 25, "Lo Lim"},
    {Home::kTransducer, 27, "Temperature"},
    {Home::kAnalogInput, 27, "Lo Lo Lim"},
    {Home::kTransducer, 28, "Temperature Unit"},
    {Home::kTransducer, 29, "Secondary Value 1"},
    {Home::kTransducer, 31, "Secondary Value 2"},
    {Home::kTransducer, 33, "Linearization Type"},
    {Home::kTransducer, 34, "Scale In"},
    {Home::kAnalogInput, 34, "Simulate"},
    {Home::kTransducer, 35, "Scale Out"},
    {Home::kTransducer, 36, "Low Flow Cut Off"},
    {Home::kTransducer, 37, "Flow Lin Sqrt Point"},
    {Home::kTransducer, 61, "Cal Temperature"},
    {Home::kTransducer, 63, "Backup Restore"},
    {Home::kTransducer, 64, "Press Lin Normal"},
    {Home::kTransducer, 65, "Press Normal"},
    {Home::kTransducer, 109, "PV%"},
});

std::string Source(const Device& device, const MonitoredRow& row, const BlockRow& block) {
  if (row.home == Home::kAll && block.home != Home::kAnalogInput) return row.form == kB6 ? "089808" : "08";
  if (row.source.starts_with("=")) return std::string(row.source.substr(1));
  if (row.source.starts_with("@")) return DerivedDigits(device, row.source.substr(1), {std::string(block.operand), ""});
  if (row.source.starts_with("ai.")) {
    return device.Digits(BlockName(BlockNumber(block.operand), row.source.substr(3)));
  }
  return device.Digits(row.source);
}

const BlockRow* BlockOf(std::string_view name) {
  return std::find_if(kBlocks.begin(), kBlocks.end(), [&](const BlockRow& row) { return row.name == name; });
}

/// The number that a monitor shows of a value; `element` counts the floats of a record from 1.
double Shown(const AnswerTag& value, std::size_t element) {
  const FloatPlaces places = FloatsOf(value.form);
  if (places.count == 0) return static_cast<double>(NumberOf(value.digits));
  const std::size_t at = std::clamp<std::size_t>(element, 1, places.count) - 1;
  return FloatAt(value.digits, places.first + 8 * at);
}

std::string Fixed(double value, int decimals) {
  std::array<char, 400> text{};
  const auto written = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
  return {text.data(), written.ptr};
}

std::string Bargraph(double percent) {
  constexpr int kWidth = 10;
  const double share = std::isfinite(percent) ? std::clamp(percent, 0.0, 100.0) / 100 : 0;
  const auto filled = static_cast<std::size_t>(std::lround(share * kWidth));
  return " [" + std::string(filled, '=') + std::string(kWidth - filled, ' ') + "]";
}

}  // namespace

std::optional<ReadRow> MonitoredRowOf(std::string_view block, std::string_view name) {
  const auto* const at = BlockOf(block);
  const auto* const row =
      std::find_if(kMonitored.begin(), kMonitored.end(), [&](const MonitoredRow& r) { return r.name == name; });
  if (at == kBlocks.end() || row == kMonitored.end()) return std::nullopt;
  return ReadRow{row->name, row->form, row->source};
}

AnswerTag MonitoredParameter(const Device& device, std::string_view block, std::string_view name) {
  const auto* const at = BlockOf(block);
  if (at == kBlocks.end()) return {"", kE2, "00"};
  for (const auto& row : kMonitored) {
    if (row.name != name) continue;
    if (row.home != Home::kAll && row.home != at->home) return {"", row.form, std::string(DigitsOf(row.form), '0')};
    return {"", row.form, Source(device, row, *at)};
  }
  return {"", kE2, "00"};
}

std::string DisplayLine(const Device& device) {
  constexpr std::int64_t kMonitorMs = 3000;
  const auto monitors = std::clamp<std::int64_t>(device.Parameters().Index("lcdSwitch", 3), 1, 3);
  const auto monitor = device.NowMs() / kMonitorMs % monitors + 1;
  const std::string prefix = "lcd[" + std::to_string(monitor) + "].";
  const auto code = [&](std::string_view rest) { return device.Code(prefix + std::string(rest)); };
  std::string line;
  if (code("alpha") == 1) line = TextOf(device.Digits(prefix + "mnemonic")) + " ";
  for (const auto& block : kBlocks) {
    if (static_cast<std::uint64_t>(block.lcdCode) != code("block")) continue;
    for (const auto& row : kIndexes) {
      const bool home = row.home == Home::kAll || row.home == block.home;
      if (!home || static_cast<std::uint64_t>(row.index) != code("index")) continue;
      const AnswerTag value = MonitoredParameter(device, block.name, row.name);
      line += Fixed(Shown(value, static_cast<std::size_t>(code("element"))),
                    device.Parameters().Index(prefix + "point", 4));
    }
  }
  return device.Code("lcdBar") == 1 ? line + Bargraph(device.Now().pvPercent) : line;
}

}  // namespace htr60::sim

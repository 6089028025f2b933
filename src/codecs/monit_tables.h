#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "text/text_map.h"

namespace htr60 {

/// A parameter of monitors 1 to 3 by its relative index.
struct MonitIndexRow {
  std::int32_t code;
  std::string_view text;
  bool transducerOnly = false;
};

inline constexpr std::array<MonitIndexRow, 11> kMonitIndexRows{{
    {8, "Sensor Value"},
    {10, "Out"},
    {11, "Cal Point Hi", true},
    {12, "Cal Point Lo", true},
    {18, "Primary Value", true},
    {27, "Temperature", true},
    {29, "Secondary Value 1"},
    {31, "Secondary Value 2"},
    {64, "Press Lin Normal"},
    {65, "Press Normal"},
    {109, "PV%"},
}};

/// A parameter of monitor 4 by its relative index: its name in each kind of block.
struct MonitIndexFullRow {
  std::int32_t code;
  std::string_view transducer;
  std::string_view analogInput;
  std::string_view physical;
  std::string_view other;
};

constexpr MonitIndexFullRow SameInAll(std::int32_t code, std::string_view text) {
  return {code, text, text, text, text};
}

inline constexpr std::array<MonitIndexFullRow, 32> kMonitIndexFullRows{{
    SameInAll(5, "Target Mode"),
    SameInAll(6, "Mode Block"),
    SameInAll(8, "Sensor Value"),
    SameInAll(10, "Out"),
    {11, "Cal Point Hi", "PV Scale", "PV Scale", "PV Scale"},
    {12, "Cal Point Lo", "Out Scale", "Out Scale", "Out Scale"},
    SameInAll(13, "L Type"),
    {14, "Sensor Unit", "Channel", "Channel", "Channel"},
    SameInAll(15, "Fail Total"),
    SameInAll(16, "PV FTime"),
    SameInAll(17, "FSafe Type"),
    {18, "Primary Value", "FSafe Value", "Write Locking", ""},
    {19, "Primary Value Unit", "Alarm Hys", "Factory Reset", ""},
    SameInAll(20, "Lo Lim"),
    SameInAll(21, "Hi Hi Lim"),
    SameInAll(23, "Hi Lim"),
    SameInAll(24, "Ident. Number Select"),
    SameInAll(25, "Lo Lim"),
    {27, "Temperature", "Lo Lo Lim", "", ""},
    SameInAll(28, "Temperature Unit"),
    SameInAll(29, "Secondary Value 1"),
    SameInAll(31, "Secondary Value 2"),
    SameInAll(33, "Linearization Type"),
    {34, "Scale In", "Simulate", "", ""},
    SameInAll(35, "Scale Out"),
    SameInAll(36, "Low Flow Cut Off"),
    SameInAll(37, "Flow Lin Sqrt Point"),
    SameInAll(61, "Cal Temperature"),
    SameInAll(63, "Backup Restore"),
    SameInAll(64, "Press Lin Normal"),
    SameInAll(65, "Press Normal"),
    SameInAll(109, "PV%"),
}};

/// "Lo Lim" stands at 20 and 25 above and is written as 25; names of one index in different blocks share its digits.
inline constexpr std::array<TextPair, 45> kMonitIndexCodes{{
    {"Target Mode", "0005"},
    {"FSafe Value", "0012"},
    {"Mode Block", "0006"},
    {"Primary Value", "0012"},
    {"Sensor Value", "0008"},
    {"Write Locking", "0012"},
    {"Out", "000A"},
    {"Alarm Hys", "0013"},
    {"Total", "000A"},
    {"Factory Reset", "0013"},
    {"Cal Point Hi", "000B"},
    {"Primary Value Unit", "0013"},
    {"PV Scale", "000B"},
    {"Hi Hi Lim", "0015"},
    {"Unit Total", "000B"},
    {"Hi Lim", "0017"},
    {"Cal Point Lo", "000C"},
    {"Ident. Number Select", "0018"},
    {"Out Scale", "000C"},
    {"Lo Lim", "0019"},
    {"L Type", "000D"},
    {"Lo Lo Lim", "001B"},
    {"Set Totalizer", "000D"},
    {"Temperature", "001B"},
    {"Channel", "000E"},
    {"Temperature Unit", "001C"},
    {"Mode Total", "000E"},
    {"Secondary Value 1", "001D"},
    {"Sensor Unit", "000E"},
    {"Secondary Value 2", "001F"},
    {"Fail Total", "000F"},
    {"Linearization Type", "0021"},
    {"PV FTime", "0010"},
    {"Scale In", "0022"},
    {"Preset Total", "0010"},
    {"Simulate", "0022"},
    {"FSafe Type", "0011"},
    {"Scale Out", "0023"},
    {"Low Flow Cut Off", "0024"},
    {"Flow Lin Sqrt Point", "0025"},
    {"Cal Temperature", "003D"},
    {"Backup Restore", "003F"},
    {"Press Lin Normal", "0040"},
    {"Press Normal", "0041"},
    {"PV%", "006D"},
}};

inline constexpr std::array<TextPair, 45> kMonitDataTypes{{
    {"Ident. Number Select", "UNSIGNED8"},
    {"Target Mode", "UNSIGNED8"},
    {"L Type", "UNSIGNED8"},
    {"Set Totalizer", "UNSIGNED8"},
    {"Mode Total", "UNSIGNED8"},
    {"Fail Total", "UNSIGNED8"},
    {"FSafe Type", "UNSIGNED8"},
    {"Linearization Type", "UNSIGNED8"},
    {"Backup Restore", "UNSIGNED8"},
    {"Write Locking", "UNSIGNED16"},
    {"Factory Reset", "UNSIGNED16"},
    {"Unit Total", "UNSIGNED16"},
    {"Channel", "UNSIGNED16"},
    {"Sensor Unit", "UNSIGNED16"},
    {"Primary Value Unit", "UNSIGNED16"},
    {"Temperature Unit", "UNSIGNED16"},
    {"Sensor Value", "FLOAT"},
    {"Cal Point Hi", "FLOAT"},
    {"Cal Point Lo", "FLOAT"},
    {"PV FTime", "FLOAT"},
    {"Preset Total", "FLOAT"},
    {"Alarm Hys", "FLOAT"},
    {"FSafe Value", "FLOAT"},
    {"Hi Hi Lim", "FLOAT"},
    {"Hi Lim", "FLOAT"},
    {"Lo Lim", "FLOAT"},
    {"Lo Lo Lim", "FLOAT"},
    {"Low Flow Cut Off", "FLOAT"},
    {"Flow Lin Sqrt Point", "FLOAT"},
    {"Cal Temperature", "FLOAT"},
    {"Press Lin Normal", "FLOAT"},
    {"Press Normal", "FLOAT"},
    {"PV%", "FLOAT"},
    {"Out", "FLOATANDSTATUS"},
    {"Primary Value", "FLOATANDSTATUS"},
    {"Temperature", "FLOATANDSTATUS"},
    {"Secondary Value 1", "FLOATANDSTATUS"},
    {"Secondary Value 2", "FLOATANDSTATUS"},
    {"Total", "FLOATANDSTATUS"},
    {"PV Scale", "2TFLOAT"},
    {"Scale In", "2TFLOAT"},
    {"Scale Out", "2TFLOAT"},
    {"Out Scale", "SCALING"},
    {"Mode Block", "MODE"},
    {"Simulate", "SIMULATIONFLOAT"},
}};

}  // namespace htr60

#pragma once

#include <cstdint>
#include <string_view>

#include "codecs/mFunctions.h"
#include "shell/user_cntrl.h"

/// The alarms of a block, which its pages and its view each list in a box of their own.
namespace htr60::pages {

struct AlarmRow {
  unsigned bit;
  std::string_view text;
};
// The blanks at the ends belong to the texts.
inline constexpr AlarmRow kAlarmRows[] = {
    {512, "Upper Limit Alarm "},    {1024, "Upper Limit Warning "},     {2048, "Lower Limit Alarm "},
    {4096, "Lower Limit Warning "}, {32768, "Parameter Modification "},
};

inline void ShowAlarmList(ListBox& list, std::int16_t word) {
  list.Clear();
  if (word == 0) list.AddRow("No Alarm");
  for (const AlarmRow& row : kAlarmRows) {
    if ((static_cast<unsigned>(word) & row.bit) != 0) list.AddRow(row.text);
  }
}

/// The alarms of the first of four words. One from 8000 up cannot be read and counts as 0.
inline void TakeAlarms(std::string_view hex, ListBox& list) {
  std::int16_t current = 0;
  std::int16_t others = 0;
  HexToFourWords(hex, current, others, others, others);
  ShowAlarmList(list, current);
}

}  // namespace htr60::pages

#pragma once

#include "screen_driver.h"

namespace htr60::automation {

/// The controls of one monitor of the local display, and the codes of its read and its write.
struct Monitor {
  int tab;
  const char* subPage;
  int read;
  int write;
  const char* timer;
  const char* block;
  const char* index;
  const char* userIndexLabel;
  const char* userIndex;
  const char* element;
  const char* mnemonic;
  const char* point;
  const char* alphaNum;  ///< null: none
  const char* group;
  const char* value;
  const char* status;
};

inline constexpr Monitor kMonitors[] = {
    {0, "Monit1", 29, 24, "TimerMonit1", "cmbFunctionBlockMonit1", "cmbRelativeIndexMonit1", "lbArray(74)",
     "txtParameter(50)", "txtParameter(131)", "txtParameter(132)", "cmbDecimalPointMonit(0)", "cmbAlphaNumFieldMonit1",
     "frmGroupParameter(0)", "txtParameter(46)", "cmbLCDStatusMonit1"},
    {1, "Monit2", 30, 25, "TimerMonit2", "cmbFunctionBlockMonit2", "cmbRelativeIndexMonit2", "lbArray(76)",
     "txtParameter(51)", "txtParameter(128)", "txtParameter(127)", "cmbDecimalPointMonit(1)", "cmbAlphaNumFieldMonit2",
     "frmGroupParameter(1)", "txtParameter(47)", "cmbLCDStatusMonit2"},
    {2, "Monit3", 31, 26, "TimerMonit3", "cmbFunctionBlockMonit3", "cmbRelativeIndexMonit3", "lbArray(77)",
     "txtParameter(57)", "txtParameter(133)", "txtParameter(134)", "cmbDecimalPointMonit(2)", "cmbAlphaNumFieldMonit3",
     "frmGroupParameter(2)", "txtParameter(48)", "cmbLCDStatusMonit3"},
    {3, "Monit4", 32, 27, "TimerMonit4", "cmbFunctionBlockMonit4", "cmbRelativeIndexMonit4", "lbArray(78)",
     "txtParameter(58)", "txtParameter(42)", "txtParameter(41)", "cmbDecimalPointMonit(3)", nullptr,
     "frmGroupParameter(3)", "txtParameter(49)", "cmbLCDStatusMonit4"},
};

/// Opens the page and the monitor's tab; what that sent is forgotten.
inline void OpenMonitor(PageDriver& driver, const Monitor& monitor) {
  driver.Activate("LCD Config");
  driver.Tab("SSTabLCD", monitor.tab);
  driver.Requests();
}

inline std::string Padded(std::string digits, std::size_t size = 32) {
  if (digits.size() < size) digits.append(size - digits.size(), '0');
  return digits;
}

}  // namespace htr60::automation

#pragma once

#include <string>

#include "windows/base/com_ptr.h"
#include "windows/win.h"

namespace htr60::view {

/// What assistive technology is told of windows in place of what the system would say.
class Accessible {
 public:
  /// Asks for the system's service; where there is none, as under emulation, the system's own words stand.
  Accessible();

  void TellName(HWND window, const std::wstring& name) const;
  void TellDescription(HWND window, const std::wstring& description) const;
  /// Of a window whose class the system does not know: that it is a list to choose from, and what is chosen.
  void TellChoice(HWND window, const std::wstring& value) const;
  /// Before the window goes.
  void Forget(HWND window) const;

 private:
  com::ComPtr<IAccPropServices> services_;
};

}  // namespace htr60::view

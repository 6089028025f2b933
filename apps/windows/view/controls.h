#pragma once

// The system's common controls, in their sixth version where the process has it.
#include "windows/win.h"

#include <commctrl.h>

namespace htr60::view {

/// While it lives, windows of common controls are made in the version that this DLL's manifest names.
class CommonControls {
 public:
  CommonControls();
  ~CommonControls();
  CommonControls(const CommonControls&) = delete;
  CommonControls& operator=(const CommonControls&) = delete;

 private:
  ULONG_PTR cookie_ = 0;
};

}  // namespace htr60::view

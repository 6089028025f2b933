#pragma once

#include <functional>
#include <memory>

#include "shell/ports.h"
#include "windows/base/com_ptr.h"
#include "windows/win.h"

namespace htr60::com {

/// Counts the calls to the manager that are under way on this control's thread; tells when the last has ended.
struct CallsOut {
  int underWay = 0;
  std::function<void()> ended;
};

/// The DTM object that a frame hands to `Init`, as the control wants it. `receiver` is what `RegisterUI` hands on in
/// place of the control's own; `calls` lives as long as what this gives.
std::shared_ptr<IDtm> MakeDtm(ComPtr<IUnknown> dtm, ComPtr<IUnknown> receiver, std::shared_ptr<CallsOut> calls);

}  // namespace htr60::com

#pragma once

#include <string>

#include "windows/base/com_ptr.h"
#include "windows/win.h"

namespace htr60::frame {

/// One control in the system's own container, with a simulated manager of its own.
class FrameControl {
 public:
  explicit FrameControl(HWND parent);
  ~FrameControl();
  FrameControl(const FrameControl&) = delete;
  FrameControl& operator=(const FrameControl&) = delete;

  /// Why there is no control; empty where there is one.
  const std::wstring& Fault() const { return fault_; }
  void Place(const RECT& rect);
  /// Attaches it to a manager with these ready-made settings.
  void Start(const std::wstring& preset);
  void Activate();
  bool TakesKey(MSG& message);
  bool Online() const;
  void SetOnline(bool online);
  std::wstring PresetNames() const;
  bool HasFocus() const;

 private:
  HWND window_ = nullptr;
  com::ComPtr<IUnknown> control_;
  com::ComPtr<IDispatch> manager_;
  std::wstring fault_;
};

/// The classes of the two DLLs beside this program, for this process alone: nothing needs to be registered.
class Servers {
 public:
  Servers();
  ~Servers();
  Servers(const Servers&) = delete;
  Servers& operator=(const Servers&) = delete;

 private:
  DWORD registered_[2]{};
};

}  // namespace htr60::frame

#include "windows/view/accessible.h"

#include <initguid.h>
#include <oleacc.h>

#include "windows/base/com_ptr.h"

namespace htr60::view {
namespace {

using com::ComPtr;

constexpr CLSID kPropServices{0xB5F8350B, 0x0548, 0x48B1, {0xA6, 0xEE, 0x88, 0xBD, 0x00, 0xB4, 0xA5, 0xE7}};
constexpr IID kAccPropServices{0x6E26E776, 0x04F0, 0x495D, {0x80, 0xE4, 0x33, 0x30, 0x35, 0x2E, 0x31, 0x69}};
constexpr MSAAPROPID kName{0x608D3DF8, 0x8128, 0x4AA7, {0xA4, 0x28, 0xF5, 0x5E, 0x49, 0x26, 0x72, 0x91}};
constexpr MSAAPROPID kDescription{0x4D48DFE4, 0xBD3F, 0x491F, {0xA6, 0x48, 0x49, 0x2D, 0x6F, 0x20, 0xC5, 0x88}};

/// Null where the system has none, as under emulation: then the system's own words stand.
ComPtr<IAccPropServices> Services() {
  void* services = nullptr;
  CoCreateInstance(kPropServices, nullptr, CLSCTX_INPROC_SERVER, kAccPropServices, &services);
  return ComPtr<IAccPropServices>::Attach(static_cast<IAccPropServices*>(services));
}

}  // namespace

void Describe(HWND window, const std::wstring& name, const std::wstring& description) {
  const ComPtr<IAccPropServices> services = Services();
  if (!services) return;
  services->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, kName, name.c_str());
  services->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, kDescription, description.c_str());
}

void Forget(HWND window) {
  const ComPtr<IAccPropServices> services = Services();
  if (!services) return;
  const MSAAPROPID both[] = {kName, kDescription};
  services->ClearHwndProps(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, both, 2);
}

}  // namespace htr60::view

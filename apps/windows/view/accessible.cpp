#include "windows/view/accessible.h"

namespace htr60::view {
namespace {

constexpr CLSID kPropServices{0xB5F8350B, 0x0548, 0x48B1, {0xA6, 0xEE, 0x88, 0xBD, 0x00, 0xB4, 0xA5, 0xE7}};
constexpr IID kAccPropServices{0x6E26E776, 0x04F0, 0x495D, {0x80, 0xE4, 0x33, 0x30, 0x35, 0x2E, 0x31, 0x69}};
constexpr MSAAPROPID kName{0x608D3DF8, 0x8128, 0x4AA7, {0xA4, 0x28, 0xF5, 0x5E, 0x49, 0x26, 0x72, 0x91}};
constexpr MSAAPROPID kValue{0x123FE443, 0x211A, 0x4615, {0x95, 0x27, 0xC4, 0x5A, 0x7E, 0x93, 0x71, 0x7A}};
constexpr MSAAPROPID kDescription{0x4D48DFE4, 0xBD3F, 0x491F, {0xA6, 0x48, 0x49, 0x2D, 0x6F, 0x20, 0xC5, 0x88}};
constexpr MSAAPROPID kRole{0xCB905FF2, 0x7BD1, 0x4C05, {0xB3, 0xC8, 0xE6, 0xC2, 0x41, 0x36, 0x4D, 0x70}};

constexpr auto kClient = static_cast<DWORD>(OBJID_CLIENT);

}  // namespace

Accessible::Accessible() {
  void* services = nullptr;
  CoCreateInstance(kPropServices, nullptr, CLSCTX_INPROC_SERVER, kAccPropServices, &services);
  services_ = com::ComPtr<IAccPropServices>::Attach(static_cast<IAccPropServices*>(services));
}

void Accessible::TellName(HWND window, const std::wstring& name) const {
  if (services_) services_->SetHwndPropStr(window, kClient, CHILDID_SELF, kName, name.c_str());
}

void Accessible::TellDescription(HWND window, const std::wstring& description) const {
  if (services_) services_->SetHwndPropStr(window, kClient, CHILDID_SELF, kDescription, description.c_str());
}

void Accessible::TellChoice(HWND window, const std::wstring& value) const {
  if (!services_) return;
  VARIANT role{};
  role.vt = VT_I4;
  role.lVal = ROLE_SYSTEM_COMBOBOX;
  services_->SetHwndProp(window, kClient, CHILDID_SELF, kRole, role);
  services_->SetHwndPropStr(window, kClient, CHILDID_SELF, kValue, value.c_str());
}

void Accessible::Forget(HWND window) const {
  if (!services_) return;
  const MSAAPROPID all[] = {kName, kDescription, kRole, kValue};
  services_->ClearHwndProps(window, kClient, CHILDID_SELF, all, static_cast<int>(std::size(all)));
}

}  // namespace htr60::view

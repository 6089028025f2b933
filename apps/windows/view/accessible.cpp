#include "windows/view/accessible.h"

namespace htr60::view {
namespace {

constexpr auto kClient = static_cast<DWORD>(OBJID_CLIENT);

}  // namespace

Accessible::Accessible() {
  void* services = nullptr;
  CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices, &services);
  services_ = com::ComPtr<IAccPropServices>::Attach(static_cast<IAccPropServices*>(services));
}

void Accessible::TellName(HWND window, const std::wstring& name) const {
  if (services_) services_->SetHwndPropStr(window, kClient, CHILDID_SELF, PROPID_ACC_NAME, name.c_str());
}

void Accessible::TellDescription(HWND window, const std::wstring& description) const {
  if (services_) services_->SetHwndPropStr(window, kClient, CHILDID_SELF, PROPID_ACC_DESCRIPTION, description.c_str());
}

void Accessible::TellChoice(HWND window, const std::wstring& value) const {
  if (!services_) return;
  VARIANT role{};
  role.vt = VT_I4;
  role.lVal = ROLE_SYSTEM_COMBOBOX;
  services_->SetHwndProp(window, kClient, CHILDID_SELF, PROPID_ACC_ROLE, role);
  services_->SetHwndPropStr(window, kClient, CHILDID_SELF, PROPID_ACC_VALUE, value.c_str());
}

void Accessible::Forget(HWND window) const {
  if (!services_) return;
  const MSAAPROPID all[] = {PROPID_ACC_NAME, PROPID_ACC_DESCRIPTION, PROPID_ACC_ROLE, PROPID_ACC_VALUE};
  services_->ClearHwndProps(window, kClient, CHILDID_SELF, all, static_cast<int>(std::size(all)));
}

}  // namespace htr60::view

#pragma once

#include <map>
#include <string>

#include "cases.h"
#include "windows/base/hand_out.h"
#include "windows/win.h"

namespace htr60::client {

/// What assistive technology has been told of a window.
struct Told {
  std::wstring name;
  std::wstring description;
  std::wstring value;
  LONG role = 0;
};

/// In place of the system's service that tells assistive technology of windows: what is told stays to be read.
class ToldWindows final : public IAccPropServices, public IClassFactory {
 public:
  ToldWindows() {
    CHECK(CoRegisterClassObject(CLSID_AccPropServices, static_cast<IClassFactory*>(this), CLSCTX_INPROC_SERVER,
                                REGCLS_MULTIPLEUSE, &registered_) == S_OK);
  }
  virtual ~ToldWindows() { CoRevokeClassObject(registered_); }
  ToldWindows(const ToldWindows&) = delete;
  ToldWindows& operator=(const ToldWindows&) = delete;

  std::map<HWND, Told> windows;

  HRESULT WINAPI QueryInterface(REFIID id, void** object) override {
    auto* const services = static_cast<IAccPropServices*>(this);
    return com::HandOut({{IID_IUnknown, services},
                         {IID_IAccPropServices, services},
                         {IID_IClassFactory, static_cast<IClassFactory*>(this)}},
                        id, object);
  }
  ULONG WINAPI AddRef() override { return 2; }
  ULONG WINAPI Release() override { return 1; }

  HRESULT WINAPI CreateInstance(IUnknown*, REFIID id, void** object) override { return QueryInterface(id, object); }
  HRESULT WINAPI LockServer(BOOL) override { return S_OK; }

  HRESULT WINAPI SetHwndProp(HWND window, DWORD object, DWORD child, MSAAPROPID what, VARIANT value) override {
    if (!IsWindowItself(object, child) || !IsEqualIID(what, PROPID_ACC_ROLE) || value.vt != VT_I4) return E_INVALIDARG;
    windows[window].role = value.lVal;
    return S_OK;
  }
  HRESULT WINAPI SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID what, LPCWSTR text) override {
    std::wstring* const place = PlaceOf(windows[window], what);
    if (!IsWindowItself(object, child) || place == nullptr) return E_INVALIDARG;
    *place = text;
    return S_OK;
  }
  HRESULT WINAPI ClearHwndProps(HWND window, DWORD object, DWORD child, const MSAAPROPID* which, int count) override {
    if (!IsWindowItself(object, child)) return E_INVALIDARG;
    Told& told = windows[window];
    for (int i = 0; i < count; ++i) {
      if (IsEqualIID(which[i], PROPID_ACC_ROLE)) told.role = 0;
      if (std::wstring* const place = PlaceOf(told, which[i])) place->clear();
    }
    if (told.name.empty() && told.description.empty() && told.value.empty() && told.role == 0) windows.erase(window);
    return S_OK;
  }

  HRESULT WINAPI SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT WINAPI SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*, AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*, AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
  HRESULT WINAPI DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*, AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
  HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
  HRESULT WINAPI DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override { return E_NOTIMPL; }

 private:
  static bool IsWindowItself(DWORD object, DWORD child) {
    return object == static_cast<DWORD>(OBJID_CLIENT) && child == CHILDID_SELF;
  }
  static std::wstring* PlaceOf(Told& told, REFGUID what) {
    if (IsEqualIID(what, PROPID_ACC_NAME)) return &told.name;
    if (IsEqualIID(what, PROPID_ACC_VALUE)) return &told.value;
    return IsEqualIID(what, PROPID_ACC_DESCRIPTION) ? &told.description : nullptr;
  }

  DWORD registered_ = 0;
};

}  // namespace htr60::client

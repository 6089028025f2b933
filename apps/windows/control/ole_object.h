#pragma once

#include "windows/base/com_ptr.h"
#include "windows/win.h"

namespace htr60::com {

/// What every embedded object says of itself to the container that holds it: site, extent, advice.
class OleObject : public IOleObject {
 public:
  HRESULT WINAPI SetClientSite(IOleClientSite* site) override;
  HRESULT WINAPI GetClientSite(IOleClientSite** site) override;
  HRESULT WINAPI SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
  HRESULT WINAPI Close(DWORD) override;
  HRESULT WINAPI SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
  HRESULT WINAPI GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
  HRESULT WINAPI InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
  HRESULT WINAPI GetClipboardData(DWORD, IDataObject** data) override;
  HRESULT WINAPI EnumVerbs(IEnumOLEVERB** verbs) override;
  HRESULT WINAPI Update() override { return S_OK; }
  HRESULT WINAPI IsUpToDate() override { return S_OK; }
  HRESULT WINAPI GetUserClassID(CLSID* id) override;
  HRESULT WINAPI GetUserType(DWORD form, LPOLESTR* type) override;
  HRESULT WINAPI SetExtent(DWORD aspect, SIZEL* extent) override;
  HRESULT WINAPI GetExtent(DWORD aspect, SIZEL* extent) override;
  HRESULT WINAPI Advise(IAdviseSink* sink, DWORD* connection) override;
  HRESULT WINAPI Unadvise(DWORD connection) override;
  HRESULT WINAPI EnumAdvise(IEnumSTATDATA** all) override;
  HRESULT WINAPI GetMiscStatus(DWORD aspect, DWORD* status) override;
  HRESULT WINAPI SetColorScheme(LOGPALETTE*) override { return S_OK; }

 protected:
  virtual ~OleObject() = default;
  /// The window of the frame that holds the object; null where there is none.
  HWND FrameWindow() const;
  IOleClientSite* Site() const { return site_.Get(); }

 private:
  ComPtr<IOleClientSite> site_;
  ComPtr<IOleAdviseHolder> advised_;
  SIZEL extent_{26988, 16933};  // 1020 x 640 at 96 dots an inch, in hundredths of a millimetre
};

}  // namespace htr60::com

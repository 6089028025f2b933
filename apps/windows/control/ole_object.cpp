#include "windows/control/ole_object.h"

#include <string_view>

#include "windows/base/entry.h"
#include "windows/base/server.h"

namespace htr60::com {

HRESULT OleObject::SetClientSite(IOleClientSite* site) {
  return Entry(this, [&] {
    const ComPtr<IOleClientSite> before = site_;  // let go when the new one stands
    site_ = ComPtr<IOleClientSite>(site);
    return S_OK;
  });
}

HRESULT OleObject::GetClientSite(IOleClientSite** site) {
  if (site == nullptr) return E_POINTER;
  *site = ComPtr<IOleClientSite>(site_.Get()).Get();
  if (*site != nullptr) (*site)->AddRef();
  return S_OK;
}

HRESULT OleObject::Close(DWORD) {
  return Entry(this, [&] {
    if (advised_) advised_->SendOnClose();
    return S_OK;
  });
}

HRESULT OleObject::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
  if (moniker != nullptr) *moniker = nullptr;
  return E_NOTIMPL;
}

HRESULT OleObject::GetClipboardData(DWORD, IDataObject** data) {
  if (data != nullptr) *data = nullptr;
  return E_NOTIMPL;
}

HRESULT OleObject::EnumVerbs(IEnumOLEVERB** verbs) {
  return verbs == nullptr ? E_POINTER : OleRegEnumVerbs(kServedClass.id, verbs);
}

HRESULT OleObject::GetUserClassID(CLSID* id) {
  if (id == nullptr) return E_POINTER;
  *id = kServedClass.id;
  return S_OK;
}

HRESULT OleObject::GetUserType(DWORD, LPOLESTR* type) {
  if (type == nullptr) return E_POINTER;
  const std::wstring_view title = kServedClass.title;
  *type = static_cast<LPOLESTR>(CoTaskMemAlloc((title.size() + 1) * sizeof(wchar_t)));
  if (*type == nullptr) return E_OUTOFMEMORY;
  (*type)[title.copy(*type, title.size())] = L'\0';
  return S_OK;
}

HRESULT OleObject::SetExtent(DWORD aspect, SIZEL* extent) {
  if (extent == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  extent_ = *extent;
  return S_OK;
}

HRESULT OleObject::GetExtent(DWORD aspect, SIZEL* extent) {
  if (extent == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *extent = extent_;
  return S_OK;
}

HRESULT OleObject::Advise(IAdviseSink* sink, DWORD* connection) {
  return Entry(this, [&] {
    if (!advised_) {
      const HRESULT made = CreateOleAdviseHolder(advised_.Out());
      if (FAILED(made)) return made;
    }
    return advised_->Advise(sink, connection);
  });
}

HRESULT OleObject::Unadvise(DWORD connection) {
  return Entry(this, [&] { return advised_ ? advised_->Unadvise(connection) : OLE_E_NOCONNECTION; });
}

HRESULT OleObject::EnumAdvise(IEnumSTATDATA** all) {
  if (all == nullptr) return E_POINTER;
  *all = nullptr;
  return Entry(this, [&] { return advised_ ? advised_->EnumAdvise(all) : S_OK; });
}

HRESULT OleObject::GetMiscStatus(DWORD aspect, DWORD* status) {
  if (status == nullptr) return E_POINTER;
  *status = 0;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *status = kControlStatus;
  return S_OK;
}

HWND OleObject::FrameWindow() const {
  HWND window = nullptr;
  // A site that is asked for the wider interface may know the narrower one alone.
  for (const IID& id : {IID_IOleWindow, IID_IOleInPlaceSite}) {
    const auto place = ComPtr<IOleWindow>::Of(site_.Get(), id);
    if (place && SUCCEEDED(place->GetWindow(&window)) && window != nullptr) break;
  }
  if (window == nullptr) return nullptr;
  return GetAncestor(window, GA_ROOT);
}

}  // namespace htr60::com

#include "windows/frame/frame_control.h"

#include <initializer_list>

#include "windows/base/module.h"
#include "windows/base/text.h"
#include "windows/control/identity.h"

namespace htr60::frame {
namespace {

using com::Bstr;
using com::ComPtr;

using CreateControl = HRESULT(WINAPI*)(LPCOLESTR name, HWND window, IStream* stream, IUnknown** container,
                                       IUnknown** control, REFIID events, IUnknown* sink);
using InitContainer = BOOL(WINAPI*)();

template <class Function>
Function Find(HMODULE library, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

/// Calls a member of the manager by name; the result is empty where it fails.
VARIANT Call(IDispatch* object, const wchar_t* name, WORD kind, std::initializer_list<VARIANT> arguments = {}) {
  VARIANT result;
  VariantInit(&result);
  auto* asked = const_cast<wchar_t*>(name);
  DISPID id = DISPID_UNKNOWN;
  if (object == nullptr || FAILED(object->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id))) return result;
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS params{const_cast<VARIANT*>(arguments.begin()), nullptr, static_cast<UINT>(arguments.size()), 0};
  if (kind == DISPATCH_PROPERTYPUT) {
    params.rgdispidNamedArgs = &put;
    params.cNamedArgs = 1;
  }
  object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &params, kind == DISPATCH_PROPERTYPUT ? nullptr : &result,
                 nullptr, nullptr);
  return result;
}

}  // namespace

Servers::Servers() {
  std::wstring folder = com::ModuleFile();
  folder.resize(folder.find_last_of(L'\\') + 1);
  const struct {
    const wchar_t* file;
    CLSID id;
  } kServers[] = {{L"htr60_control.dll", com::kControlClass}, {L"htr60_manager.dll", com::kManagerClass}};
  for (std::size_t i = 0; i < 2; ++i) {
    using GetClass = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const HMODULE library = LoadLibraryW((folder + kServers[i].file).c_str());
    const auto get = library == nullptr ? nullptr : Find<GetClass>(library, "DllGetClassObject");
    ComPtr<IUnknown> factory;
    if (get == nullptr || FAILED(get(kServers[i].id, IID_IUnknown, reinterpret_cast<void**>(factory.Out())))) continue;
    CoRegisterClassObject(kServers[i].id, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registered_[i]);
  }
}

Servers::~Servers() {
  for (const DWORD registered : registered_) {
    if (registered != 0) CoRevokeClassObject(registered);
  }
}

FrameControl::FrameControl(HWND parent) {
  const HMODULE container = LoadLibraryW(L"atl.dll");
  const auto init = container == nullptr ? nullptr : Find<InitContainer>(container, "AtlAxWinInit");
  const auto create = container == nullptr ? nullptr : Find<CreateControl>(container, "AtlAxCreateControlEx");
  if (init == nullptr || create == nullptr) {
    fault_ = L"This system has no container for controls (atl.dll).";
    return;
  }
  init();
  window_ = CreateWindowExW(WS_EX_CONTROLPARENT, L"AtlAxWin", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 10,
                            10, parent, nullptr, com::Module(), nullptr);
  wchar_t id[40] = {};
  StringFromGUID2(com::kControlClass, id, 40);
  const HRESULT created = create(id, window_, nullptr, nullptr, control_.Out(), IID_NULL, nullptr);
  if (FAILED(created) || !control_)
    fault_ = L"The control could not be created: is htr60_control.dll beside this program?";
}

FrameControl::~FrameControl() {
  if (const auto control = ComPtr<com::IDtmActiveXControl>::Of(control_.Get(), com::kDtmActiveXControl)) {
    VARIANT_BOOL done = VARIANT_FALSE;
    control->PrepareToRelease(&done);
  }
  DestroyWindow(window_);  // the container lets the control go
}

void FrameControl::Place(const RECT& rect) {
  SetWindowPos(window_, nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void FrameControl::Start(const std::wstring& preset) {
  CoCreateInstance(com::kManagerClass, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                   reinterpret_cast<void**>(manager_.Out()));
  const auto control = ComPtr<com::IDtmActiveXControl>::Of(control_.Get(), com::kDtmActiveXControl);
  if (!manager_ || !control) return;
  if (!preset.empty()) {
    const Bstr name{std::wstring_view(preset)};
    Call(manager_.Get(), L"UsePreset", DISPATCH_METHOD, {TextVariant(name)});
  }
  const Bstr invokeId(std::wstring_view(L"htr60-frame"));
  VARIANT_BOOL attached = VARIANT_FALSE;
  control->Init(invokeId.Get(), nullptr, manager_.Get(), &attached);
  if (attached == VARIANT_FALSE) fault_ = L"The control could not be attached to the simulated manager.";
}

// The container never does so by itself.
void FrameControl::Activate() {
  const auto object = ComPtr<IOleObject>::Of(control_.Get(), IID_IOleObject);
  if (!object) return;
  ComPtr<IOleClientSite> site;
  object->GetClientSite(site.Out());
  RECT rect{};
  GetClientRect(window_, &rect);
  object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.Get(), 0, window_, &rect);
}

bool FrameControl::HasFocus() const {
  const HWND focus = GetFocus();
  return focus != nullptr && IsChild(window_, focus) != FALSE;
}

bool FrameControl::TakesKey(MSG& message) {
  if (!HasFocus()) return false;
  const auto active = ComPtr<IOleInPlaceActiveObject>::Of(control_.Get(), IID_IOleInPlaceActiveObject);
  return active && active->TranslateAccelerator(&message) == S_OK;
}

bool FrameControl::Online() const {
  const VARIANT online = Call(manager_.Get(), L"Online", DISPATCH_PROPERTYGET);
  return online.vt == VT_BOOL && online.boolVal != VARIANT_FALSE;
}

void FrameControl::SetOnline(bool online) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_BOOL;
  value.boolVal = online ? VARIANT_TRUE : VARIANT_FALSE;
  Call(manager_.Get(), L"Online", DISPATCH_PROPERTYPUT, {value});
}

std::wstring FrameControl::PresetNames() const {
  VARIANT names = Call(manager_.Get(), L"PresetNames", DISPATCH_PROPERTYGET);
  std::wstring text = names.vt == VT_BSTR ? std::wstring(com::TextOf(names.bstrVal)) : std::wstring();
  VariantClear(&names);
  return text;
}

}  // namespace htr60::frame

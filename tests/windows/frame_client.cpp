// What a frame asks of the control before and beside the work: frame_client CONTROL, the DLL.

#include <string>
#include <vector>

#include "library.h"
#include "test_manager.h"
#include "windows/base/dispatch.h"
#include "windows/base/hand_out.h"

namespace htr60::client {
namespace {

using com::Bstr;

const Library* control;  // the DLL; lives in main

ComPtr<com::IDtmActiveXControl> Make() {
  return control->Create<com::IDtmActiveXControl>(com::kControlClass, com::kDtmActiveXControl);
}

const IID kInterfaces[] = {IID_IUnknown,          IID_IDispatch,        com::kDtmActiveXControl,
                           com::kScriptedControl, IID_IOleObject,       IID_IPersistStreamInit,
                           IID_IPersist,          IID_IProvideClassInfo};

void Entries() {
  void* object = &object;
  CHECK(control->GetClass(com::kManagerClass, IID_IClassFactory, &object) == CLASS_E_CLASSNOTAVAILABLE);
  CHECK(object == nullptr);
  object = &object;
  CHECK(control->GetClass(com::kControlClass, IID_IOleObject, &object) == E_NOINTERFACE);
  CHECK(object == nullptr);
  CHECK(control->GetClass(com::kControlClass, IID_IClassFactory, nullptr) == E_POINTER);
  CHECK(control->CanUnloadNow() == S_FALSE);
  const auto factory = control->Factory(com::kControlClass);
  CHECK(factory->LockServer(TRUE) == S_OK && factory->LockServer(FALSE) == S_OK);
}

void Aggregation() {
  const auto factory = control->Factory(com::kControlClass);
  TestManager outer;
  void* object = &object;
  CHECK(factory->CreateInstance(outer.AsUnknown().Get(), IID_IUnknown, &object) == CLASS_E_NOAGGREGATION);
  CHECK(object == nullptr);
  CHECK(outer.References() == 1);
  CHECK(factory->CreateInstance(nullptr, IID_IUnknown, nullptr) == E_POINTER);
  CHECK(factory->CreateInstance(nullptr, com::kDtmCore, &object) == E_NOINTERFACE);
  CHECK(object == nullptr);
  CHECK(control->LiveObjects() == 1);  // the factory
}

void Identity() {
  const auto made = Make();
  const auto unknown = ComPtr<IUnknown>::Of(made.Get(), IID_IUnknown);
  for (const IID& from : kInterfaces) {
    const auto one = ComPtr<IUnknown>::Of(unknown.Get(), from);
    CHECK(one);
    CHECK(ComPtr<IUnknown>::Of(one.Get(), IID_IUnknown).Get() == unknown.Get());
    for (const IID& to : kInterfaces) CHECK(ComPtr<IUnknown>::Of(one.Get(), to));
  }
  CHECK(made.Get() == ComPtr<IUnknown>::Of(unknown.Get(), com::kDtmActiveXControl).Get());
}

void Unknown() {
  const auto made = Make();
  for (const IID& id : {com::kDtmCore, com::kDtmParameterAccess, com::kControlClass, IID_IMarshal, IID_IClassFactory,
                        IID_IStorage, IID_IConnectionPointContainer, GUID{}}) {
    void* object = &object;
    CHECK(made->QueryInterface(id, &object) == E_NOINTERFACE);
    CHECK(object == nullptr);
  }
  CHECK(made->QueryInterface(IID_IUnknown, nullptr) == E_POINTER);
}

/// A place in a container that counts who holds it.
class Site final : public IOleClientSite {
 public:
  virtual ~Site() = default;
  LONG References() const { return references_; }
  HRESULT WINAPI QueryInterface(REFIID id, void** object) override {
    return com::HandOut({{IID_IUnknown, this}, {IID_IOleClientSite, this}}, id, object);
  }
  ULONG WINAPI AddRef() override { return static_cast<ULONG>(++references_); }
  ULONG WINAPI Release() override { return static_cast<ULONG>(--references_); }
  HRESULT WINAPI SaveObject() override { return S_OK; }
  HRESULT WINAPI GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  HRESULT WINAPI GetContainer(IOleContainer**) override { return E_NOINTERFACE; }
  HRESULT WINAPI ShowObject() override { return S_OK; }
  HRESULT WINAPI OnShowWindow(BOOL) override { return S_OK; }
  HRESULT WINAPI RequestNewObjectLayout() override { return E_NOTIMPL; }

 private:
  LONG references_ = 1;
};

/// A control in its place, made new before or after it is put there.
void Placed(bool newFirst) {
  Site site;
  Site other;
  {
    const auto made = Make();
    const auto object = ComPtr<IOleObject>::Of(made.Get(), IID_IOleObject);
    const auto persist = ComPtr<IPersistStreamInit>::Of(made.Get(), IID_IPersistStreamInit);
    if (newFirst) CHECK(persist->InitNew() == S_OK);
    CHECK(object->SetClientSite(&site) == S_OK);
    if (!newFirst) CHECK(persist->InitNew() == S_OK);
    CHECK(site.References() > 1);
    ComPtr<IOleClientSite> found;
    CHECK(object->GetClientSite(found.Out()) == S_OK && found.Get() == &site);
    found.Reset();
    TestManager manager;
    VARIANT_BOOL attached = VARIANT_FALSE;
    CHECK(made->Init(nullptr, nullptr, manager.AsUnknown().Get(), &attached) == S_OK && attached == VARIANT_TRUE);
    CHECK(object->SetClientSite(&other) == S_OK);
    CHECK(site.References() == 1 && other.References() > 1);
    CHECK(object->SetClientSite(&other) == S_OK);
    VARIANT_BOOL done = VARIANT_FALSE;
    CHECK(made->PrepareToRelease(&done) == S_OK && done == VARIANT_TRUE);
    CHECK(object->Close(OLECLOSE_NOSAVE) == S_OK);
    CHECK(object->SetClientSite(nullptr) == S_OK);
    CHECK(other.References() == 1);
    CHECK(object->SetClientSite(&site) == S_OK);  // and not taken out again
  }
  CHECK(site.References() == 1 && other.References() == 1);
}

void NewThenPlaced() { Placed(true); }
void PlacedThenNew() { Placed(false); }

void Persistence() {
  const auto made = Make();
  const auto persist = ComPtr<IPersistStreamInit>::Of(made.Get(), IID_IPersistStreamInit);
  CLSID id{};
  CHECK(persist->GetClassID(&id) == S_OK && IsEqualCLSID(id, com::kControlClass));
  CHECK(persist->IsDirty() == S_FALSE);
  ComPtr<IStream> stream;
  CHECK(CreateStreamOnHGlobal(nullptr, TRUE, stream.Out()) == S_OK);
  CHECK(persist->Save(stream.Get(), TRUE) == S_OK);
  STATSTG status{};
  CHECK(stream->Stat(&status, STATFLAG_NONAME) == S_OK && status.cbSize.QuadPart == 0);
  CHECK(persist->Load(stream.Get()) == S_OK);
  ULARGE_INTEGER size{};
  size.QuadPart = 7;
  CHECK(persist->GetSizeMax(&size) == S_OK && size.QuadPart == 0);
  CHECK(persist->GetSizeMax(nullptr) == E_POINTER);
}

void WhatItSays() {
  const auto made = Make();
  const auto object = ComPtr<IOleObject>::Of(made.Get(), IID_IOleObject);
  CLSID id{};
  CHECK(object->GetUserClassID(&id) == S_OK && IsEqualCLSID(id, com::kControlClass));
  LPOLESTR type = nullptr;
  CHECK(object->GetUserType(USERCLASSTYPE_FULL, &type) == S_OK);
  const std::wstring title = type;
  CoTaskMemFree(type);
  CHECK(title == L"HTR60 operator interface");
  DWORD status = 0;
  CHECK(object->GetMiscStatus(DVASPECT_CONTENT, &status) == S_OK && (status & OLEMISC_INSIDEOUT) != 0);
  CHECK(object->GetMiscStatus(DVASPECT_ICON, &status) == DV_E_DVASPECT);
  SIZEL extent{20000, 10000};
  CHECK(object->SetExtent(DVASPECT_CONTENT, &extent) == S_OK);
  extent = {};
  CHECK(object->GetExtent(DVASPECT_CONTENT, &extent) == S_OK && extent.cx == 20000 && extent.cy == 10000);
  CHECK(object->GetExtent(DVASPECT_ICON, &extent) == DV_E_DVASPECT);
  CHECK(object->Unadvise(7) == OLE_E_NOCONNECTION);
}

void TypeInformation() {
  const auto made = Make();
  UINT count = 0;
  CHECK(made->GetTypeInfoCount(&count) == S_OK && count == 1);
  ComPtr<ITypeInfo> info;
  CHECK(made->GetTypeInfo(0, LOCALE_NEUTRAL, info.Out()) == S_OK);
  TYPEATTR* attributes = nullptr;
  CHECK(info->GetTypeAttr(&attributes) == S_OK);
  const bool ours = IsEqualGUID(attributes->guid, com::kScriptedControl) && attributes->typekind == TKIND_DISPATCH;
  const WORD functions = attributes->cFuncs;
  info->ReleaseTypeAttr(attributes);
  CHECK(ours);
  // What the library tells is what the object answers.
  int own = 0;
  for (UINT i = 0; i < functions; ++i) {
    FUNCDESC* function = nullptr;
    CHECK(info->GetFuncDesc(i, &function) == S_OK);
    const MEMBERID member = function->memid;
    const bool inherited = (function->wFuncFlags & FUNCFLAG_FRESTRICTED) != 0;
    info->ReleaseFuncDesc(function);
    if (inherited) continue;
    BSTR name = nullptr;
    UINT names = 0;
    CHECK(info->GetNames(member, &name, 1, &names) == S_OK && names == 1);
    DISPID id = DISPID_UNKNOWN;
    CHECK(made->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_NEUTRAL, &id) == S_OK);
    SysFreeString(name);
    CHECK(id == member);
    ++own;
  }
  CHECK(own == 5);
  CHECK(made->GetTypeInfo(1, LOCALE_NEUTRAL, info.Out()) == DISP_E_BADINDEX);
  const auto provider = ComPtr<IProvideClassInfo>::Of(made.Get(), IID_IProvideClassInfo);
  CHECK(provider->GetClassInfo(info.Out()) == S_OK);
  CHECK(info->GetTypeAttr(&attributes) == S_OK);
  const bool theClass = IsEqualGUID(attributes->guid, com::kControlClass) && attributes->typekind == TKIND_COCLASS;
  info->ReleaseTypeAttr(attributes);
  CHECK(theClass);
}

/// A call by name; the arguments in their order.
HRESULT Call(IDispatch& object, DISPID id, std::vector<VARIANT> arguments, VARIANT* result = nullptr,
             UINT* wrong = nullptr, WORD kind = DISPATCH_METHOD) {
  const std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
  DISPPARAMS params{const_cast<VARIANT*>(reversed.data()), nullptr, static_cast<UINT>(reversed.size()), 0};
  EXCEPINFO exception{};
  return object.Invoke(id, IID_NULL, LOCALE_NEUTRAL, kind, &params, result, &exception, wrong);
}

VARIANT TextArgument(const Bstr& text) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = VT_BSTR;
  variant.bstrVal = text.Get();
  return variant;
}

VARIANT NumberArgument(LONG number) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = VT_I4;
  variant.lVal = number;
  return variant;
}

void Names() {
  const auto made = Make();
  auto* names = const_cast<wchar_t*>(L"DOCXML");
  DISPID id = 0;
  CHECK(made->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_NEUTRAL, &id) == S_OK && id == com::kDocXml);
  LPOLESTR two[] = {const_cast<wchar_t*>(L"Init"), const_cast<wchar_t*>(L"dtm")};
  DISPID ids[2] = {};
  CHECK(made->GetIDsOfNames(IID_NULL, two, 2, LOCALE_NEUTRAL, ids) == DISP_E_UNKNOWNNAME);
  CHECK(ids[0] == com::kInit && ids[1] == DISPID_UNKNOWN);
  CHECK(made->GetIDsOfNames(IID_IUnknown, &names, 1, LOCALE_NEUTRAL, &id) == DISP_E_UNKNOWNINTERFACE);
  CHECK(Call(*made.Get(), 99, {}) == DISP_E_MEMBERNOTFOUND);
  CHECK(Call(*made.Get(), com::kInit, {}, nullptr, nullptr, DISPATCH_PROPERTYGET) == DISP_E_MEMBERNOTFOUND);
  CHECK(Call(*made.Get(), com::kInit, {}) == DISP_E_BADPARAMCOUNT);
  CHECK(Call(*made.Get(), com::kDocXml, std::vector<VARIANT>(23, NumberArgument(1))) == DISP_E_BADPARAMCOUNT);
  CHECK(Call(*made.Get(), com::kDocXml, std::vector<VARIANT>(25, NumberArgument(1))) == DISP_E_BADPARAMCOUNT);
  UINT wrong = 99;
  const Bstr text(std::wstring_view(L"x"));
  CHECK(Call(*made.Get(), com::kInit, {TextArgument(text), TextArgument(text), NumberArgument(7)}, nullptr, &wrong) ==
        DISP_E_TYPEMISMATCH);
  CHECK(wrong == 0);  // counted from the last
  DISPID named = 0;
  VARIANT argument = NumberArgument(7);
  DISPPARAMS params{&argument, &named, 1, 1};
  CHECK(made->Invoke(com::kGetFactor1Unit, IID_NULL, 0, DISPATCH_METHOD, &params, nullptr, nullptr, nullptr) ==
        DISP_E_NONAMEDARGS);
  CHECK(made->Invoke(com::kInit, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr) == E_POINTER);
}

void References() {
  const auto made = Make();
  BSTR changed = SysAllocString(L"<1>");
  VARIANT inner = NumberArgument(2);
  VARIANT byText;
  VariantInit(&byText);
  byText.vt = VT_BYREF | VT_BSTR;
  byText.pbstrVal = &changed;
  VARIANT byAny;
  VariantInit(&byAny);
  byAny.vt = VT_BYREF | VT_VARIANT;
  byAny.pvarVal = &inner;
  std::vector<VARIANT> arguments(24, NumberArgument(3));
  arguments[0] = byText;
  arguments[1] = byAny;
  VARIANT result;
  VariantInit(&result);
  CHECK(Call(*made.Get(), com::kDocXml, arguments, &result) == S_OK);
  const std::wstring document = result.vt == VT_BSTR ? std::wstring(com::TextOf(result.bstrVal)) : std::wstring();
  VariantClear(&result);
  CHECK(document.starts_with(LR"(<ViewData><ControlData Attribute1="&lt;1&gt;" Attribute2="2" Attribute3="3")"));
  CHECK(std::wstring(changed) == L"<1>" && inner.vt == VT_I4 && inner.lVal == 2);
  SysFreeString(changed);
}

void AttachedByName() {
  TestManager manager;
  {
    const auto made = Make();
    const Bstr id(std::wstring_view(L"7"));
    for (const VARTYPE kind : {VARTYPE{VT_UNKNOWN}, VARTYPE{VT_DISPATCH}, VARTYPE{VT_BYREF | VT_UNKNOWN},
                               VARTYPE{VT_BYREF | VT_DISPATCH}, VARTYPE{VT_BYREF | VT_VARIANT}}) {
      IUnknown* unknown = static_cast<com::IDtmCore*>(&manager);
      IDispatch* dispatch = static_cast<com::IDtmCore*>(&manager);
      VARIANT inner;
      VariantInit(&inner);
      inner.vt = VT_DISPATCH;
      inner.pdispVal = dispatch;
      VARIANT dtm;
      VariantInit(&dtm);
      dtm.vt = kind;
      if (kind == VT_UNKNOWN) dtm.punkVal = unknown;
      if (kind == VT_DISPATCH) dtm.pdispVal = dispatch;
      if (kind == (VT_BYREF | VT_UNKNOWN)) dtm.ppunkVal = &unknown;
      if (kind == (VT_BYREF | VT_DISPATCH)) dtm.ppdispVal = &dispatch;
      if (kind == (VT_BYREF | VT_VARIANT)) dtm.pvarVal = &inner;
      VARIANT result;
      VariantInit(&result);
      CHECK(Call(*made.Get(), com::kInit, {TextArgument(id), TextArgument(id), dtm}, &result) == S_OK);
      CHECK(result.vt == VT_BOOL && result.boolVal == VARIANT_TRUE);
    }
    CHECK(manager.TakeLog().size() == 5);
    VARIANT result;
    VariantInit(&result);
    CHECK(Call(*made.Get(), com::kPrepareToRelease, {}, &result) == S_OK);
    CHECK(result.vt == VT_BOOL && result.boolVal == VARIANT_TRUE);
    CHECK(Call(*made.Get(), com::kPrepareToRelease, {}) == S_OK);
  }
  manager.receiver.Reset();
  CHECK(manager.References() == 1);
}

void BesideIt() {
  CHECK(FindResourceW(control->Module(), MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(16)) != nullptr);  // its version
  wchar_t file[1024] = {};
  CHECK(GetModuleFileNameW(control->Module(), file, 1024) > 0);
  std::wstring folder = file;
  folder.resize(folder.find_last_of(L'\\') + 1);
  for (const wchar_t* icon : {L"connected.ico", L"no connection.ico"}) {
    CHECK(GetFileAttributesW((folder + icon).c_str()) != INVALID_FILE_ATTRIBUTES);
    // Wine's emulation of 32 bits loads no icon at all, not even the system's own.
    if (sizeof(void*) == 4 && LoadIconW(nullptr, reinterpret_cast<LPCWSTR>(IDI_APPLICATION)) == nullptr) continue;
    const HANDLE loaded =
        LoadImageW(nullptr, (folder + icon).c_str(), IMAGE_ICON, 0, 0, LR_LOADFROMFILE | LR_DEFAULTSIZE);
    CHECK(loaded != nullptr);
    DestroyIcon(static_cast<HICON>(loaded));
  }
}

// The last one, for all the others.
void NothingIsLeft() {
  CHECK(control->LiveObjects() == 0);
  FreeLibrary(control->Module());
  CHECK(GetModuleHandleW(L"htr60_control.dll") != nullptr);  // stays, whoever lets it go
}

constexpr Case kCases[] = {
    {"the entries", &Entries},
    {"no aggregation", &Aggregation},
    {"one object behind all interfaces", &Identity},
    {"unknown interfaces", &Unknown},
    {"made new, then placed", &NewThenPlaced},
    {"placed, then made new", &PlacedThenNew},
    {"nothing is kept", &Persistence},
    {"what it says of itself", &WhatItSays},
    {"type information", &TypeInformation},
    {"names", &Names},
    {"arguments by reference", &References},
    {"attached by name", &AttachedByName},
    {"its version and the icons beside it", &BesideIt},
    {"nothing is left", &NothingIsLeft},
};

}  // namespace
}  // namespace htr60::client

int main(int count, char** arguments) {
  return htr60::client::RunWithLibrary(count, arguments, htr60::client::control, htr60::client::kCases);
}

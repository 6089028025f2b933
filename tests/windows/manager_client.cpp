// The simulated manager as a frame's own code calls it: manager_client MANAGER, the DLL.

#include <string>
#include <utility>
#include <vector>

#include "library.h"
#include "windows/base/hand_out.h"
#include "windows/base/text.h"
#include "windows/control/identity.h"

namespace htr60::client {
namespace {

using com::Bstr;

const Library* library;  // the DLL; lives in main

/// A receiver that is called by its table alone, and writes down what comes.
class Taker final : public com::IUpdateUI {
 public:
  virtual ~Taker() = default;
  std::vector<std::pair<LONG, std::wstring>> answers;
  LONG References() const { return references_; }

  HRESULT WINAPI QueryInterface(REFIID id, void** object) override {
    return com::HandOut({{IID_IUnknown, this}, {com::kUpdateUI, this}}, id, object);
  }
  ULONG WINAPI AddRef() override { return static_cast<ULONG>(++references_); }
  ULONG WINAPI Release() override { return static_cast<ULONG>(--references_); }
  HRESULT WINAPI GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT WINAPI GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT WINAPI GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT WINAPI Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI UpdateUI(LONG code, VARIANT answer) override {
    answers.emplace_back(code, answer.vt == VT_BSTR ? com::TextOf(answer.bstrVal) : std::wstring_view(L"no text"));
    return S_OK;
  }

 private:
  LONG references_ = 1;
};

/// A manager with its two interfaces.
struct Manager {
  ComPtr<com::IDtmCore> core = library->Create<com::IDtmCore>(com::kManagerClass, com::kDtmCore);
  ComPtr<com::IDtmParameterAccess> access = ComPtr<com::IDtmParameterAccess>::Of(core.Get(), com::kDtmParameterAccess);

  HRESULT Register(IUnknown* taker, const wchar_t* id = L"7") const {
    VARIANT_BOOL flag = VARIANT_FALSE;
    return core->RegisterUI(Bstr(std::wstring_view(L"PrjMainWQ512DTM.MainWQ512DTM")).Get(),
                            Bstr(std::wstring_view(id)).Get(), taker, 0, &flag);
  }
  HRESULT Unregister(const wchar_t* id) const {
    VARIANT_BOOL flag = VARIANT_FALSE;
    return core->UnregisterUI(Bstr(std::wstring_view(id)).Get(), VARIANT_TRUE, &flag);
  }
  HRESULT Read(const wchar_t* code, std::wstring* result = nullptr) const {
    Bstr given;
    const HRESULT read = access->ReadRequest(Bstr(std::wstring_view(code)).Get(), nullptr, given.Out());
    if (result != nullptr) *result = com::TextOf(given.Get());
    return read;
  }
};

void Pump(DWORD milliseconds) {
  for (const ULONGLONG end = GetTickCount64() + milliseconds; GetTickCount64() < end;) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
  }
}

void AnswersComeLater() {
  Taker taker;
  {
    const Manager manager;
    CHECK(manager.Register(&taker) == S_OK);
    std::wstring result;
    CHECK(manager.Read(L"90", &result) == S_OK && result == L"0");
    CHECK(manager.Read(L"1") == S_OK);
    CHECK(manager.access->ReadRequest(Bstr(std::wstring_view(L"7")).Get(), nullptr, nullptr) == S_OK);
    CHECK(taker.answers.empty());
    Pump(1000);
    CHECK(taker.answers.size() == 3);
    CHECK(taker.answers[0].first == 9000 && taker.answers[0].second == L"<DTMInfo state='Online' />");
    CHECK(taker.answers[1].first == 100 && taker.answers[1].second.find(L"PHYTag") != std::wstring::npos);
    CHECK(taker.answers[2].first == 700);
  }
  CHECK(taker.References() == 1);
}

void WhoIsRegistered() {
  Taker first;
  Taker second;
  {
    const Manager manager;
    CHECK(manager.Register(&first, L"1") == S_OK);
    CHECK(manager.Read(L"90") == S_OK);
    CHECK(manager.Unregister(L"other") == S_OK);
    CHECK(manager.Unregister(L"1") == S_OK);
    CHECK(first.References() == 1);
    Pump(200);
    CHECK(first.answers.empty());
    CHECK(manager.Register(&second, L"2") == S_OK);
    CHECK(manager.Read(L"90") == S_OK);
    Pump(200);
    CHECK(first.answers.empty() && second.answers.size() == 1);
    // And one that is there when it goes, with an answer on its way.
    CHECK(manager.Read(L"90") == S_OK);
  }
  CHECK(second.References() == 1);
  Pump(200);
  CHECK(second.answers.size() == 1);
}

void WhatItRefuses() {
  Taker taker;
  const Manager manager;
  CHECK(FAILED(manager.Register(nullptr)));
  CHECK(FAILED(manager.Register(manager.access.Get())));
  CHECK(manager.Register(&taker) == S_OK);
  CHECK(FAILED(manager.Read(L"one")));
  CHECK(FAILED(manager.Read(L"")));
  CHECK(FAILED(manager.access->WriteRequest(Bstr(std::wstring_view(L"1")).Get(),
                                            Bstr(std::wstring_view(L"<ViewData/>")).Get(), nullptr)));
  const std::wstring lone(1, L'\xD800');
  CHECK(FAILED(manager.Read(lone.c_str())));
  Pump(200);
  CHECK(taker.answers.empty());
  CHECK(manager.Read(L"90") == S_OK);
  Pump(200);
  CHECK(taker.answers.size() == 1);
}

void Identity() {
  const Manager manager;
  const auto unknown = ComPtr<IUnknown>::Of(manager.core.Get(), IID_IUnknown);
  for (const IID& id : {IID_IUnknown, IID_IDispatch, com::kDtmCore, com::kDtmParameterAccess}) {
    const auto found = ComPtr<IUnknown>::Of(manager.access.Get(), id);
    CHECK(found && ComPtr<IUnknown>::Of(found.Get(), IID_IUnknown).Get() == unknown.Get());
  }
  CHECK(!ComPtr<IUnknown>::Of(unknown.Get(), com::kUpdateUI));
  CHECK(!ComPtr<IUnknown>::Of(unknown.Get(), IID_IOleObject));
  // One name, one number, whichever interface is asked.
  auto* name = const_cast<wchar_t*>(L"ReadRequest");
  DISPID byCore = 0;
  DISPID byAccess = 0;
  CHECK(manager.core->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_NEUTRAL, &byCore) == S_OK);
  CHECK(manager.access->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_NEUTRAL, &byAccess) == S_OK);
  CHECK(byCore == byAccess);
}

void NothingIsLeft() { CHECK(library->LiveObjects() == 0); }

constexpr Case kCases[] = {
    {"answers come later, in order", &AnswersComeLater},
    {"who is registered", &WhoIsRegistered},
    {"what it refuses", &WhatItRefuses},
    {"one object behind all interfaces", &Identity},
    {"nothing is left", &NothingIsLeft},
};

}  // namespace
}  // namespace htr60::client

int main(int count, char** arguments) {
  return htr60::client::RunWithLibrary(count, arguments, htr60::client::library, htr60::client::kCases);
}

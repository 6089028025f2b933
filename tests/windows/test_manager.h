#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "windows/base/com_ptr.h"
#include "windows/base/text.h"
#include "windows/control/identity.h"
#include "windows/win.h"

namespace htr60::client {

using com::ComPtr;

/// By which ways a manager can be called.
enum class Way { kTable, kNames, kBoth };
/// The call in which it fails.
enum class Failing { kNothing, kCore, kAccess, kRegister, kUnregister, kRead, kWrite };

/// A DTM manager that writes down how it is called, and does in a call what a test wants. Lives as long as its test.
class TestManager final : public com::IDtmCore, public com::IDtmParameterAccess {
 public:
  explicit TestManager(Way way = Way::kBoth) : way_(way) {}
  virtual ~TestManager() = default;

  Failing failing = Failing::kNothing;
  HRESULT failure = E_FAIL;
  std::function<void()> inside;  ///< runs once, in the next call
  std::vector<std::string> log;
  ComPtr<com::IUpdateUI> receiver;  ///< that of the last registration
  int deferred = 0;                 ///< how often the text of an exception was asked for

  LONG References() const { return references_; }
  ComPtr<IUnknown> AsUnknown() { return ComPtr<IUnknown>(static_cast<com::IDtmCore*>(this)); }
  std::vector<std::string> TakeLog() { return std::exchange(log, {}); }

  HRESULT WINAPI QueryInterface(REFIID id, void** object) override {
    *object = nullptr;
    if (IsEqualIID(id, IID_IUnknown) || (IsEqualIID(id, com::kDtmCore) && failing != Failing::kCore)) {
      *object = static_cast<com::IDtmCore*>(this);
    } else if (IsEqualIID(id, com::kDtmParameterAccess) && failing != Failing::kAccess) {
      *object = static_cast<com::IDtmParameterAccess*>(this);
    } else {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG WINAPI AddRef() override { return static_cast<ULONG>(++references_); }
  ULONG WINAPI Release() override { return static_cast<ULONG>(--references_); }

  HRESULT WINAPI GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT WINAPI GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }

  // Numbers that nobody can guess, so that they have to be asked for.
  HRESULT WINAPI GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    if (way_ == Way::kTable) return DISP_E_UNKNOWNNAME;
    for (int i = 0; i < 4; ++i) {
      if (lstrcmpW(names[0], kNames[i]) == 0) {
        *ids = kFirst + i;
        return S_OK;
      }
    }
    return DISP_E_UNKNOWNNAME;
  }

  HRESULT WINAPI Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* params, VARIANT*, EXCEPINFO* exception,
                        UINT*) override {
    if (kind != DISPATCH_METHOD || params->cNamedArgs != 0) return DISP_E_MEMBERNOTFOUND;
    const auto at = [&](UINT i) -> VARIANT& { return params->rgvarg[params->cArgs - 1 - i]; };
    const auto kinds = [&](std::vector<VARTYPE> wanted) {
      if (params->cArgs != wanted.size()) return false;
      for (UINT i = 0; i < params->cArgs; ++i) {
        if (at(i).vt != wanted[i]) return false;
      }
      return true;
    };
    HRESULT result = DISP_E_TYPEMISMATCH;
    switch (id - kFirst) {
      case 0:
        if (!kinds({VT_BSTR, VT_BSTR, VT_UNKNOWN, VT_I4, VT_BYREF | VT_BOOL})) break;
        result = Register("name", at(0).bstrVal, at(1).bstrVal, at(2).punkVal, at(3).lVal, at(4).pboolVal);
        break;
      case 1:
        if (!kinds({VT_BSTR, VT_BOOL, VT_BYREF | VT_BOOL})) break;
        result = Unregister("name", at(0).bstrVal, at(1).boolVal, at(2).pboolVal);
        break;
      case 2:
      case 3:
        if (!kinds({VT_BSTR, VT_BSTR, VT_BYREF | VT_BSTR})) break;
        result = Request("name", id - kFirst == 2, at(0).bstrVal, at(1).bstrVal, at(2).pbstrVal);
        break;
      default:
        return DISP_E_MEMBERNOTFOUND;
    }
    if (result == DISP_E_EXCEPTION) Explain(*exception);
    return result;
  }

  HRESULT WINAPI RegisterUI(BSTR className, BSTR invokeId, IUnknown* ui, LONG number, VARIANT_BOOL* flag) override {
    return ByTable() ? Register("table", className, invokeId, ui, number, flag) : E_NOTIMPL;
  }
  HRESULT WINAPI UnregisterUI(BSTR invokeId, VARIANT_BOOL number, VARIANT_BOOL* flag) override {
    return ByTable() ? Unregister("table", invokeId, number, flag) : E_NOTIMPL;
  }
  HRESULT WINAPI WriteRequest(BSTR code, BSTR document, BSTR* result) override {
    return ByTable() ? Request("table", true, code, document, result) : E_NOTIMPL;
  }
  HRESULT WINAPI ReadRequest(BSTR code, BSTR document, BSTR* result) override {
    return ByTable() ? Request("table", false, code, document, result) : E_NOTIMPL;
  }

 private:
  static constexpr const wchar_t* kNames[] = {L"RegisterUI", L"UnregisterUI", L"WriteRequest", L"ReadRequest"};
  static constexpr DISPID kFirst = 1100;
  static inline TestManager* explained_ = nullptr;

  static std::string Utf8(BSTR text) { return com::Utf8WithMarks(com::TextOf(text)); }

  bool ByTable() {
    if (way_ == Way::kNames) log.emplace_back("called by its table");
    return way_ != Way::kNames;
  }
  HRESULT End(Failing call) {
    if (const auto act = std::exchange(inside, nullptr)) act();
    return failing == call ? failure : S_OK;
  }
  HRESULT Register(const char* way, BSTR className, BSTR invokeId, IUnknown* ui, LONG number, VARIANT_BOOL* flag) {
    log.push_back(std::string("register by ") + way + ": " + Utf8(className) + ", " + Utf8(invokeId) + ", " +
                  std::to_string(number));
    receiver = ComPtr<com::IUpdateUI>::Of(ui, com::kUpdateUI);
    *flag = VARIANT_TRUE;
    return End(Failing::kRegister);
  }
  HRESULT Unregister(const char* way, BSTR invokeId, VARIANT_BOOL number, VARIANT_BOOL* flag) {
    log.push_back(std::string("unregister by ") + way + ": " + Utf8(invokeId) + ", " + std::to_string(number));
    *flag = VARIANT_TRUE;
    return End(Failing::kUnregister);
  }
  HRESULT Request(const char* way, bool write, BSTR code, BSTR document, BSTR* result) {
    const std::string text = Utf8(document);
    log.push_back(std::string(write ? "write by " : "read by ") + way + ": " + Utf8(code) + ", " +
                  text.substr(0, text.find(" Attribute3")));
    *result = SysAllocString(L"taken \x00E4");
    return End(write ? Failing::kWrite : Failing::kRead);
  }

  // As one that fills in what went wrong when it is asked.
  void Explain(EXCEPINFO& exception) {
    explained_ = this;
    exception = {};
    exception.pfnDeferredFillIn = &Fill;
  }
  static HRESULT WINAPI Fill(EXCEPINFO* exception) {
    ++explained_->deferred;
    exception->bstrDescription = SysAllocString(L"it went wrong");
    exception->bstrSource = SysAllocString(L"test");
    return S_OK;
  }

  Way way_;
  LONG references_ = 1;
};

}  // namespace htr60::client

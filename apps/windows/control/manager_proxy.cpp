#include "windows/control/manager_proxy.h"

#include <array>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "text/failure.h"
#include "windows/base/text.h"
#include "windows/control/identity.h"

namespace htr60::com {
namespace {

/// One call to the manager.
class CallOut {
 public:
  explicit CallOut(std::shared_ptr<CallsOut> calls) : calls_(std::move(calls)) { ++calls_->underWay; }
  ~CallOut() {
    if (--calls_->underWay == 0 && calls_->ended) calls_->ended();
  }
  CallOut(const CallOut&) = delete;
  CallOut& operator=(const CallOut&) = delete;

 private:
  std::shared_ptr<CallsOut> calls_;
};

void Check(HRESULT result) {
  if (FAILED(result)) throw RuntimeFailure("the DTM manager failed");
}

/// Calls a member by name. None where the object does not know the name; then it is called by its table.
std::optional<HRESULT> ByName(IDispatch& object, const wchar_t* name, std::initializer_list<VARIANT> arguments) {
  auto* asked = const_cast<wchar_t*>(name);
  DISPID id = DISPID_UNKNOWN;
  if (FAILED(object.GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id))) return std::nullopt;
  std::array<VARIANT, 5> reversed{};
  std::size_t at = arguments.size();
  for (const VARIANT& argument : arguments) reversed[--at] = argument;
  DISPPARAMS params{reversed.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  EXCEPINFO exception{};
  UINT wrong = 0;
  VARIANT result;
  VariantInit(&result);
  const HRESULT called =
      object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, &result, &exception, &wrong);
  VariantClear(&result);
  if (called == DISP_E_EXCEPTION && exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  return called;
}

class Core final : public htr60::IDtmCore {
 public:
  Core(ComPtr<com::IDtmCore> core, ComPtr<IUnknown> receiver, std::shared_ptr<CallsOut> calls)
      : core_(std::move(core)), receiver_(std::move(receiver)), calls_(std::move(calls)) {}

  // The receiver of the control stands behind ours, which the manager gets.
  void RegisterUI(std::string_view className, std::string_view invokeId, std::shared_ptr<htr60::IUpdateUI>,
                  std::int32_t number, bool& flag) override {
    const ComPtr<com::IDtmCore> core = core_;
    const ComPtr<IUnknown> receiver = receiver_;
    const Bstr name(className);
    const Bstr id(invokeId);
    VARIANT_BOOL given = VARIANT_FALSE;
    VARIANT handed;
    VariantInit(&handed);
    handed.vt = VT_UNKNOWN;
    handed.punkVal = receiver.Get();
    const CallOut call(calls_);
    const auto byName =
        ByName(*core.Get(), L"RegisterUI", {TextVariant(name), TextVariant(id), handed, Number(number), Out(given)});
    Check(byName ? *byName : core->RegisterUI(name.Get(), id.Get(), receiver.Get(), number, &given));
    flag = given != VARIANT_FALSE;
  }

  void UnregisterUI(std::string_view invokeId, std::int32_t number, bool& flag) override {
    const ComPtr<com::IDtmCore> core = core_;
    const Bstr id(invokeId);
    VARIANT_BOOL given = VARIANT_FALSE;
    VARIANT minusOne;
    VariantInit(&minusOne);
    minusOne.vt = VT_BOOL;
    minusOne.boolVal = static_cast<VARIANT_BOOL>(number);
    const CallOut call(calls_);
    const auto byName = ByName(*core.Get(), L"UnregisterUI", {TextVariant(id), minusOne, Out(given)});
    Check(byName ? *byName : core->UnregisterUI(id.Get(), minusOne.boolVal, &given));
    flag = given != VARIANT_FALSE;
  }

 private:
  static VARIANT Number(std::int32_t number) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_I4;
    variant.lVal = number;
    return variant;
  }
  static VARIANT Out(VARIANT_BOOL& flag) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_BYREF | VT_BOOL;
    variant.pboolVal = &flag;
    return variant;
  }

  ComPtr<com::IDtmCore> core_;
  ComPtr<IUnknown> receiver_;
  std::shared_ptr<CallsOut> calls_;
};

class Access final : public htr60::IDtmParameterAccess {
 public:
  Access(ComPtr<com::IDtmParameterAccess> access, std::shared_ptr<CallsOut> calls)
      : access_(std::move(access)), calls_(std::move(calls)) {}

  void WriteRequest(std::string_view code, std::string_view document, std::string& result) override {
    Send(L"WriteRequest", &com::IDtmParameterAccess::WriteRequest, code, document, result);
  }
  void ReadRequest(std::string_view code, std::string_view document, std::string& result) override {
    Send(L"ReadRequest", &com::IDtmParameterAccess::ReadRequest, code, document, result);
  }

 private:
  using Request = HRESULT (WINAPI com::IDtmParameterAccess::*)(BSTR, BSTR, BSTR*);

  void Send(const wchar_t* name, Request request, std::string_view code, std::string_view document,
            std::string& result) {
    const ComPtr<com::IDtmParameterAccess> access = access_;
    const Bstr number(code);
    const Bstr text(document);
    Bstr given;
    VARIANT out;
    VariantInit(&out);
    out.vt = VT_BYREF | VT_BSTR;
    out.pbstrVal = given.Out();
    const CallOut call(calls_);
    const auto byName = ByName(*access.Get(), name, {TextVariant(number), TextVariant(text), out});
    Check(byName ? *byName : (access.Get()->*request)(number.Get(), text.Get(), out.pbstrVal));
    result = Utf8WithMarks(TextOf(given.Get()));
  }

  ComPtr<com::IDtmParameterAccess> access_;
  std::shared_ptr<CallsOut> calls_;
};

class Dtm final : public IDtm {
 public:
  Dtm(ComPtr<IUnknown> dtm, ComPtr<IUnknown> receiver, std::shared_ptr<CallsOut> calls)
      : dtm_(std::move(dtm)), receiver_(std::move(receiver)), calls_(std::move(calls)) {}

  std::shared_ptr<htr60::IDtmCore> Core() override {
    auto core = Ask<com::IDtmCore>(kDtmCore);
    return core ? std::make_shared<com::Core>(std::move(core), receiver_, calls_) : nullptr;
  }
  std::shared_ptr<htr60::IDtmParameterAccess> ParameterAccess() override {
    auto access = Ask<com::IDtmParameterAccess>(kDtmParameterAccess);
    return access ? std::make_shared<Access>(std::move(access), calls_) : nullptr;
  }

 private:
  template <class Interface>
  ComPtr<Interface> Ask(const IID& id) {
    const CallOut call(calls_);
    return ComPtr<Interface>::Of(dtm_.Get(), id);
  }

  ComPtr<IUnknown> dtm_;
  ComPtr<IUnknown> receiver_;
  std::shared_ptr<CallsOut> calls_;
};

}  // namespace

std::shared_ptr<IDtm> MakeDtm(ComPtr<IUnknown> dtm, ComPtr<IUnknown> receiver, std::shared_ptr<CallsOut> calls) {
  if (!dtm) return nullptr;
  return std::make_shared<Dtm>(std::move(dtm), std::move(receiver), std::move(calls));
}

}  // namespace htr60::com

#include "windows/base/dispatch.h"

#include <algorithm>
#include <iterator>

#include "windows/base/text.h"

namespace htr60::com {
namespace {

/// A copy of an argument without its references, as the wanted kind.
class Taken {
 public:
  Taken(const VARIANT& argument, VARTYPE kind, std::size_t number) {
    VariantInit(&value_);
    HRESULT result = VariantCopyInd(&value_, const_cast<VARIANT*>(&argument));
    if (SUCCEEDED(result) && value_.vt == VT_ERROR) {
      result = DISP_E_PARAMNOTOPTIONAL;  // left out by its caller
    } else if (SUCCEEDED(result)) {
      result = VariantChangeType(&value_, &value_, 0, kind);
    }
    if (FAILED(result)) {
      VariantClear(&value_);
      throw ComFailure{.result = result, .argument = static_cast<UINT>(number)};
    }
  }
  ~Taken() { VariantClear(&value_); }
  Taken(const Taken&) = delete;
  Taken& operator=(const Taken&) = delete;
  const VARIANT* operator->() const { return &value_; }

 private:
  VARIANT value_;
};

/// Where a result goes of an argument by reference: the variable itself, for a variable of any kind its content.
void Put(const VARIANT& argument, VARIANT& result) {
  if (argument.vt == (VT_BYREF | VT_VARIANT) && argument.pvarVal != nullptr) {
    VariantClear(argument.pvarVal);
    *argument.pvarVal = result;
    VariantInit(&result);
  } else if (argument.vt == (VT_BYREF | VT_BSTR) && result.vt == VT_BSTR && argument.pbstrVal != nullptr) {
    SysFreeString(*argument.pbstrVal);
    *argument.pbstrVal = result.bstrVal;
    VariantInit(&result);
  } else if (argument.vt == (VT_BYREF | VT_BOOL) && result.vt == VT_BOOL && argument.pboolVal != nullptr) {
    *argument.pboolVal = result.boolVal;
  }
  VariantClear(&result);
}

const Member* FindMember(Members members, DISPID id, WORD kind) {
  const auto found = std::find_if(members.begin(), members.end(),
                                  [&](const Member& member) { return member.id == id && (member.kinds & kind) != 0; });
  return found == members.end() ? nullptr : &*found;
}

void Tell(const ComFailure& failure, EXCEPINFO& exception) {
  exception = {};
  exception.scode = E_FAIL;
  exception.bstrSource = SysAllocString(L"HTR60");
  exception.bstrDescription = SysAllocStringLen(failure.sentence.data(), static_cast<UINT>(failure.sentence.size()));
}

/// One of the properties that are set has its value named.
bool NamesAreRight(WORD kind, const DISPPARAMS& params) {
  if (params.cNamedArgs == 0) return true;
  return (kind & DISPATCH_PROPERTYPUT) != 0 && params.cNamedArgs == 1 &&
         params.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
}

}  // namespace

std::wstring Arguments::Text(std::size_t i) const {
  const Taken text(At(i), VT_BSTR, i);
  return std::wstring(TextOf(text->bstrVal));
}

LONG Arguments::Number(std::size_t i) const { return Taken(At(i), VT_I4, i)->lVal; }

bool Arguments::Flag(std::size_t i) const { return Taken(At(i), VT_BOOL, i)->boolVal != VARIANT_FALSE; }

ComPtr<IUnknown> Arguments::Object(std::size_t i) const {
  const VARIANT* argument = &At(i);
  if (argument->vt == (VT_BYREF | VT_VARIANT)) argument = argument->pvarVal;
  switch (argument == nullptr ? VARTYPE{VT_EMPTY} : argument->vt) {
    case VT_UNKNOWN:
      return ComPtr<IUnknown>(argument->punkVal);
    case VT_DISPATCH:
      return ComPtr<IUnknown>(argument->pdispVal);
    case VT_BYREF | VT_UNKNOWN:
      return ComPtr<IUnknown>(*argument->ppunkVal);
    case VT_BYREF | VT_DISPATCH:
      return ComPtr<IUnknown>(*argument->ppdispVal);
    default:
      throw ComFailure{.result = DISP_E_TYPEMISMATCH, .argument = static_cast<UINT>(i)};
  }
}

void Arguments::PutText(std::size_t i, std::wstring_view text) const {
  VARIANT result;
  com::PutText(result, text);
  Put(At(i), result);
}

void Arguments::PutFlag(std::size_t i, bool flag) const {
  VARIANT result;
  com::PutFlag(result, flag);
  Put(At(i), result);
}

void PutText(VARIANT& result, std::wstring_view text) {
  VariantInit(&result);
  result.bstrVal = Bstr(text).Detach();
  result.vt = VT_BSTR;
}

void PutFlag(VARIANT& result, bool flag) {
  VariantInit(&result);
  result.vt = VT_BOOL;
  result.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
}

void PutNumber(VARIANT& result, LONG number) {
  VariantInit(&result);
  result.vt = VT_I4;
  result.lVal = number;
}

HRESULT FindIds(Members members, const IID& reserved, LPOLESTR* names, UINT count, DISPID* ids) {
  if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || ids == nullptr || count == 0) return E_POINTER;
  std::fill(ids, ids + count, DISPID_UNKNOWN);
  const auto found = std::find_if(members.begin(), members.end(),
                                  [&](const Member& member) { return lstrcmpiW(member.name, names[0]) == 0; });
  if (found == members.end()) return DISP_E_UNKNOWNNAME;
  ids[0] = found->id;
  return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;  // arguments have no names
}

HRESULT CallById(Members members, IDispatch& self, DISPID id, const IID& reserved, WORD kind, DISPPARAMS* params,
                 VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) noexcept {
  return Entry(&self, [&]() -> HRESULT {
    if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (params == nullptr) return E_POINTER;
    const Member* const member = FindMember(members, id, kind);
    if (member == nullptr) return DISP_E_MEMBERNOTFOUND;
    if (!NamesAreRight(kind, *params)) return DISP_E_NONAMEDARGS;
    if (params->cArgs != member->arguments) return DISP_E_BADPARAMCOUNT;
    VARIANT value;
    VariantInit(&value);
    try {
      member->call(self, Arguments(*params), value);
    } catch (const ComFailure& failure) {
      if (wrongArgument != nullptr) *wrongArgument = params->cArgs == 0 ? 0 : params->cArgs - 1 - failure.argument;
      if (failure.result == DISP_E_EXCEPTION && exception != nullptr) Tell(failure, *exception);
      return failure.result;
    }
    if (result != nullptr) {
      *result = value;
    } else {
      VariantClear(&value);
    }
    return S_OK;
  });
}

}  // namespace htr60::com

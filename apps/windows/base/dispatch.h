#pragma once

#include <span>
#include <string>
#include <string_view>

#include "windows/base/com_ptr.h"
#include "windows/base/entry.h"
#include "windows/win.h"

namespace htr60::com {

/// The arguments of a call by name, counted from 0 in the order in which they are written. By value or by reference.
/// What cannot be had of one throws `ComFailure` with its number.
class Arguments {
 public:
  explicit Arguments(const DISPPARAMS& params) : params_(params) {}

  std::size_t Count() const { return params_.cArgs; }
  /// A text, or what a text can be made of.
  std::wstring Text(std::size_t i) const;
  LONG Number(std::size_t i) const;
  bool Flag(std::size_t i) const;
  /// An object; null for `Nothing`.
  ComPtr<IUnknown> Object(std::size_t i) const;
  /// The argument as it stands.
  const VARIANT& At(std::size_t i) const { return params_.rgvarg[params_.cArgs - 1 - i]; }
  /// Puts a result into an argument by reference; one by value is left, for its caller does not want it.
  void PutText(std::size_t i, std::wstring_view text) const;
  void PutFlag(std::size_t i, bool flag) const;

 private:
  const DISPPARAMS& params_;
};

// Results for a script.
void PutText(VARIANT& result, std::wstring_view text);
void PutFlag(VARIANT& result, bool flag);
void PutNumber(VARIANT& result, LONG number);

/// One row of what an object answers by name.
struct Member {
  const wchar_t* name;
  DISPID id;
  WORD kinds;  ///< DISPATCH_METHOD, DISPATCH_PROPERTYGET, ...
  unsigned arguments;
  void (*call)(IDispatch& self, const Arguments& arguments, VARIANT& result);
};
using Members = std::span<const Member>;

HRESULT FindIds(Members members, const IID& reserved, LPOLESTR* names, UINT count, DISPID* ids);
HRESULT CallById(Members members, IDispatch& self, DISPID id, const IID& reserved, WORD kind, DISPPARAMS* params,
                 VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) noexcept;

/// An interface whose members can be called by name too: those of `ScriptMembers`.
template <class Interface>
class Scriptable : public Interface {
 public:
  HRESULT WINAPI GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT WINAPI GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return DISP_E_BADINDEX;
  }
  HRESULT WINAPI GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    return FindIds(ScriptMembers(), reserved, names, count, ids);
  }
  HRESULT WINAPI Invoke(DISPID id, REFIID reserved, LCID, WORD kind, DISPPARAMS* params, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrongArgument) override {
    return CallById(ScriptMembers(), *this, id, reserved, kind, params, result, exception, wrongArgument);
  }

 protected:
  virtual Members ScriptMembers() const = 0;
};

}  // namespace htr60::com

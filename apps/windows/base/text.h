#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "windows/win.h"

namespace htr60::com {

/// UTF-16 as UTF-8; none where a surrogate stands alone. By length: a NUL is a character like any other.
std::optional<std::string> Utf8(std::wstring_view text);
/// The same with U+FFFD in place of each lone surrogate.
std::string Utf8WithMarks(std::wstring_view text);
/// UTF-8 as UTF-16; none where it is no UTF-8.
std::optional<std::wstring> Utf16(std::string_view text);
/// The same with U+FFFD in place of what is no UTF-8.
std::wstring Utf16WithMarks(std::string_view text);

/// The text of a BSTR; a null one is empty.
inline std::wstring_view TextOf(BSTR text) { return {text, SysStringLen(text)}; }

/// An owned BSTR. Throws `std::bad_alloc` where there is no memory.
class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(std::wstring_view text);
  explicit Bstr(std::string_view utf8) : Bstr(std::wstring_view(Utf16WithMarks(utf8))) {}
  ~Bstr() { SysFreeString(text_); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;

  BSTR Get() const { return text_; }
  /// For a call that gives one; drops what it holds.
  BSTR* Out();
  BSTR Detach();

 private:
  BSTR text_ = nullptr;
};

/// As an argument of a call; `text` keeps it.
inline VARIANT TextVariant(const Bstr& text) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = VT_BSTR;
  variant.bstrVal = text.Get();
  return variant;
}

}  // namespace htr60::com

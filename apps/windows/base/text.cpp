#include "windows/base/text.h"

#include <limits>
#include <new>
#include <utility>

namespace htr60::com {
namespace {

int Length(std::size_t size) {
  if (size > static_cast<std::size_t>(std::numeric_limits<int>::max())) throw std::bad_alloc();
  return static_cast<int>(size);
}

std::optional<std::string> ToUtf8(std::wstring_view text, DWORD flags) {
  if (text.empty()) return std::string();
  const int length = Length(text.size());
  const int size = WideCharToMultiByte(CP_UTF8, flags, text.data(), length, nullptr, 0, nullptr, nullptr);
  if (size <= 0) return std::nullopt;
  std::string utf8(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, flags, text.data(), length, utf8.data(), size, nullptr, nullptr);
  return utf8;
}

std::optional<std::wstring> ToUtf16(std::string_view text, DWORD flags) {
  if (text.empty()) return std::wstring();
  const int length = Length(text.size());
  const int size = MultiByteToWideChar(CP_UTF8, flags, text.data(), length, nullptr, 0);
  if (size <= 0) return std::nullopt;
  std::wstring utf16(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_UTF8, flags, text.data(), length, utf16.data(), size);
  return utf16;
}

}  // namespace

std::optional<std::string> Utf8(std::wstring_view text) { return ToUtf8(text, WC_ERR_INVALID_CHARS); }
std::string Utf8WithMarks(std::wstring_view text) { return ToUtf8(text, 0).value_or(std::string()); }
std::optional<std::wstring> Utf16(std::string_view text) { return ToUtf16(text, MB_ERR_INVALID_CHARS); }
std::wstring Utf16WithMarks(std::string_view text) { return ToUtf16(text, 0).value_or(std::wstring()); }

Bstr::Bstr(std::wstring_view text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(Length(text.size())))) {
  if (text_ == nullptr) throw std::bad_alloc();
}

BSTR* Bstr::Out() {
  SysFreeString(std::exchange(text_, nullptr));
  return &text_;
}

BSTR Bstr::Detach() { return std::exchange(text_, nullptr); }

}  // namespace htr60::com

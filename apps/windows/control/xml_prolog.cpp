#include "windows/control/xml_prolog.h"

#include <algorithm>

namespace htr60::com {
namespace {

constexpr std::wstring_view kBlanks = L" \t\r\n";

bool IsLetter(wchar_t c) { return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z'); }
bool IsOfEncoding(wchar_t c) { return IsLetter(c) || (c >= L'0' && c <= L'9') || c == L'.' || c == L'_' || c == L'-'; }

/// Walks through the declaration.
class Cursor {
 public:
  explicit Cursor(std::wstring_view text) : text_(text) {}

  bool Take(std::wstring_view word) {
    if (!text_.substr(at_).starts_with(word)) return false;
    at_ += word.size();
    return true;
  }
  bool TakeBlanks() {
    const std::size_t end = std::min(text_.find_first_not_of(kBlanks, at_), text_.size());
    const bool some = end > at_;
    at_ = end;
    return some;
  }
  /// `name = "value"`; gives the value.
  bool TakePair(std::wstring_view name, std::wstring_view& value) {
    if (!Take(name)) return false;
    TakeBlanks();
    if (!Take(L"=")) return false;
    TakeBlanks();
    if (at_ >= text_.size() || (text_[at_] != L'"' && text_[at_] != L'\'')) return false;
    const std::size_t end = text_.find(text_[at_], at_ + 1);
    if (end == std::wstring_view::npos) return false;
    value = text_.substr(at_ + 1, end - at_ - 1);
    at_ = end + 1;
    return true;
  }
  std::size_t At() const { return at_; }

 private:
  std::wstring_view text_;
  std::size_t at_ = 0;
};

/// An encoding at its place and with a name that may be one; any other is left for the reader to refuse. False where
/// another stands behind it, which the reader would not see to be the second.
bool TakeEncodingOut(std::wstring& document) {
  Cursor cursor(document);
  std::wstring_view value;
  if (!cursor.Take(L"<?xml") || !cursor.TakeBlanks() || !cursor.TakePair(L"version", value)) return true;
  const std::size_t from = cursor.At();
  if (!cursor.TakeBlanks() || !cursor.TakePair(L"encoding", value)) return true;
  if (value.empty() || !IsLetter(value.front()) || !std::all_of(value.begin(), value.end(), IsOfEncoding)) return true;
  const std::size_t to = cursor.At();
  cursor.TakeBlanks();
  if (cursor.Take(L"encoding")) return false;
  document.erase(from, to - from);
  return true;
}

/// Blanks at the beginning, which the emulation's reader takes for another encoding. False where a declaration follows:
/// it stands first or not at all.
bool TakeBlanksOut(std::wstring& document) {
  const std::size_t blanks = std::min(document.find_first_not_of(kBlanks), document.size());
  if (blanks == 0) return true;
  document.erase(0, blanks);
  Cursor cursor(document);
  return !cursor.Take(L"<?xml") || !cursor.TakeBlanks();
}

}  // namespace

bool PrepareProlog(std::wstring& document) {
  constexpr wchar_t kMark = L'\xFEFF';
  if (document.starts_with(kMark)) document.erase(0, 1);
  // The reader takes one more.
  if (document.starts_with(kMark) || !TakeBlanksOut(document) || !TakeEncodingOut(document)) return false;
  const std::wstring_view text = document;
  std::size_t at = 0;
  for (;;) {
    at = text.find_first_not_of(kBlanks, at);
    if (at == std::wstring_view::npos) return true;  // the reader refuses it
    const std::wstring_view rest = text.substr(at);
    std::wstring_view end;
    if (rest.starts_with(L"<!--")) {
      at += 4;
      end = L"-->";
    } else if (rest.starts_with(L"<?")) {
      at += 2;
      end = L"?>";
    } else {
      return !rest.starts_with(L"<!");
    }
    at = text.find(end, at);
    if (at == std::wstring_view::npos) return true;
    at += end.size();
  }
}

}  // namespace htr60::com

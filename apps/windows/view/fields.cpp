#include "windows/view/fields.h"

#include <algorithm>
#include <cstring>
#include <cwctype>

#include "presentation/marks.h"
#include "windows/base/text.h"

namespace htr60::view {
namespace {

constexpr int kMargin = 2;  // 1/96 inch, on both sides of a text within its window
constexpr wchar_t kTooLong[] = L"#####";

DWORD EntryStyle(const PlannedField& field, bool typed) {
  DWORD style = ES_AUTOHSCROLL;
  if (!typed) style |= ES_READONLY;
  if (field.number) style |= ES_RIGHT;
  if (field.role == RowRole::kAccessCode) style |= ES_PASSWORD;
  return style;
}

// The page paints the frame of a text, which stands in its middle: the system's window would have it at its top.
RECT TextIn(const RECT& frame, const Look& look, Look::Font font) {
  RECT text = frame;
  InflateRect(&text, look.Pixels(kMargin) - look.Inset(), 0);
  text.top = (frame.top + frame.bottom - look.Line(font)) / 2;
  text.bottom = text.top + look.Line(font);
  return text;
}

bool IsTypedInto(RowKind kind) { return kind == RowKind::kEdit || kind == RowKind::kNum; }

std::wstring ClipboardText(HWND owner) {
  std::wstring text;
  if (OpenClipboard(owner) == FALSE) return text;
  if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
    if (const auto* words = static_cast<const wchar_t*>(GlobalLock(data))) {
      text.assign(words, std::find(words, words + GlobalSize(data) / sizeof(wchar_t), L'\0'));
      GlobalUnlock(data);
    }
  }
  CloseClipboard();
  return text;
}

}  // namespace

std::wstring WithMnemonic(const std::wstring& caption, char letter) {
  std::wstring text;
  bool marked = letter == '\0';
  for (const wchar_t c : caption) {
    if (c == L'&') text += L'&';
    if (!marked && std::towupper(c) == static_cast<wchar_t>(letter)) {
      text += L'&';
      marked = true;
    }
    text += c;
  }
  return text;
}

void CopyText(HWND owner, const std::wstring& text) {
  if (OpenClipboard(owner) == FALSE) return;
  EmptyClipboard();
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  if (const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes)) {
    if (void* const place = GlobalLock(memory)) {
      std::memcpy(place, text.c_str(), bytes);
      GlobalUnlock(memory);
      if (SetClipboardData(CF_UNICODETEXT, memory) == nullptr) GlobalFree(memory);
    }
  }
  CloseClipboard();
}

// ---- texts

EntryField::EntryField(IViewActs& acts, HWND page, const PlannedField& field, int longest)
    : Child(acts, page, {L"EDIT", EntryStyle(field, IsTypedInto(field.kind))}, field.control),
      typed_(IsTypedInto(field.kind)) {
  if (longest > 0) SendMessageW(Handle(), EM_SETLIMITTEXT, static_cast<WPARAM>(longest), 0);
  if (field.role == RowRole::kAccessCode) SendMessageW(Handle(), EM_SETPASSWORDCHAR, L'*', 0);
}

void EntryField::Place(const RECT& frame, const PlannedField& field, const Look& look) {
  Child::Place(TextIn(frame, look, field.large ? Look::Font::kLarge : Look::Font::kPlain));
}

void EntryField::Take(const PlannedField& field, const Look& look) {
  const bool restyled = look_ != &look;
  look_ = &look;
  number_ = field.number;
  font_ = field.large ? Look::Font::kLarge : Look::Font::kPlain;
  SetFont(look.Handle(font_));
  if (restyled) {  // the system's own grow with the font, and large texts would be cut
    const int margin = look.Pixels(kMargin);
    SendMessageW(Handle(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(margin, margin));
  }
  if (pale_ != field.pale) {
    pale_ = field.pale;
    InvalidateRect(Handle(), nullptr, TRUE);
  }
  if (field.text != Text()) {
    // Cursor and selection stay as far as the text allows.
    DWORD from = 0;
    DWORD to = 0;
    SendMessageW(Handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    taking_ = true;
    SetText(field.text);
    taking_ = false;
    if (typed_ && GetFocus() == Handle()) SendMessageW(Handle(), EM_SETSEL, from, static_cast<LPARAM>(to));
  }
  Enable(field.enabled);
  Describe(field.name, field.description);
}

void EntryField::SelectAll() { SendMessageW(Handle(), EM_SETSEL, 0, -1); }

bool EntryField::HasSelection() const {
  DWORD from = 0;
  DWORD to = 0;
  SendMessageW(Handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  return from != to;
}

void EntryField::CopyToClipboard() {
  if (HasSelection()) {
    SendMessageW(Handle(), WM_COPY, 0, 0);
  } else {
    CopyText(Handle(), Text());
  }
}

bool EntryField::CutOff() const {
  if (look_ == nullptr) return false;
  RECT client{};
  GetClientRect(Handle(), &client);
  return look_->WidthOf(Text(), font_) > client.right - 2 * look_->Pixels(kMargin);
}

// A number that is only read is never cut.
bool EntryField::TooLong() const { return !typed_ && number_ && CutOff(); }

void EntryField::PaintTooLong() {
  PAINTSTRUCT paint{};
  const HDC context = BeginPaint(Handle(), &paint);
  RECT client{};
  GetClientRect(Handle(), &client);
  const Canvas canvas(context, *look_);
  canvas.Fill(client, look_->window);
  canvas.Text(client, kTooLong, pale_ ? look_->PaleOn(look_->window) : look_->windowText,
              DT_RIGHT | DT_VCENTER | DT_SINGLELINE, font_);
  EndPaint(Handle(), &paint);
}

LRESULT EntryField::OnMessage(UINT message, WPARAM word, LPARAM number) {
  switch (message) {
    case WM_PAINT:
      if (!TooLong()) break;
      PaintTooLong();
      return 0;
    case WM_PASTE:
      if (typed_ && Acts().Paste(Spot().control, ClipboardText(Handle()))) return 0;
      break;
    case WM_DROPFILES:
      return 0;
    default:
      break;
  }
  return Default(message, word, number);
}

// ---- buttons

ButtonField::ButtonField(IViewActs& acts, HWND parent, presentation::Spot spot, DWORD style)
    : Child(acts, parent, {L"BUTTON", style}, spot) {}

void ButtonField::Take(const PlannedField& field, const Look& look) {
  SetFont(look.Handle(Look::Font::kPlain));
  SetText(WithMnemonic(field.text, field.mnemonic));
  Enable(field.enabled);
  Describe(field.name, field.description);
}

// ---- rows

RowsField::RowsField(IViewActs& acts, HWND page, const PlannedField& field)
    : Child(acts, page, {L"LISTBOX", WS_VSCROLL | LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS},
            field.control) {}

void RowsField::Place(const RECT& frame, const PlannedField&, const Look& look) {
  RECT inside = frame;
  InflateRect(&inside, -look.Pixels(1), -look.Pixels(1));
  Child::Place(inside);
}

void RowsField::Take(const PlannedField& field, const Look& look) {
  SetFont(look.Handle(Look::Font::kPlain));
  SendMessageW(Handle(), LB_SETITEMHEIGHT, 0, look.Line() + look.Pixels(2));
  role_ = field.role;
  Enable(field.enabled);
  Describe(field.name, field.description);
  if (field.text == rows_) return;
  rows_ = field.text;
  SendMessageW(Handle(), LB_RESETCONTENT, 0, 0);
  std::size_t from = 0;
  while (from < rows_.size()) {
    const std::size_t end = std::min(rows_.find(L'\n', from), rows_.size());
    const std::wstring row = rows_.substr(from, end - from);
    SendMessageW(Handle(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
    from = end + 1;
  }
}

void RowsField::PaintRow(const DRAWITEMSTRUCT& item, const Look& look) const {
  const Canvas canvas(item.hDC, look);
  const bool selected = (item.itemState & ODS_SELECTED) != 0;
  canvas.Fill(item.rcItem, selected ? look.highlight : look.window);
  if (static_cast<LONG>(item.itemID) < 0) return;
  std::wstring row(
      static_cast<std::size_t>(std::max<LRESULT>(0, SendMessageW(Handle(), LB_GETTEXTLEN, item.itemID, 0))), L'\0');
  SendMessageW(Handle(), LB_GETTEXT, item.itemID, reinterpret_cast<LPARAM>(row.data()));
  const Shape shape = ShapeOf(presentation::MarkOf(role_, RowKind::kListBox, com::Utf8WithMarks(row)));
  RECT rect = item.rcItem;
  rect.left += look.Pixels(2);
  const int side = look.Ascent();
  PaintShape(canvas, {rect.left, rect.top, rect.left + side, rect.bottom}, shape);
  rect.left += side + look.Character() / 2;
  canvas.Text(rect, row, selected ? look.highlightText : look.windowText,
              DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
}

}  // namespace htr60::view

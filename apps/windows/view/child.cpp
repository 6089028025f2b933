#include "windows/view/child.h"

#include <new>

#include "windows/base/com_ptr.h"
#include "windows/base/module.h"

namespace htr60::view {
namespace {

constexpr wchar_t kProperty[] = L"Htr60Child";

bool IsKey(UINT message) { return message == WM_KEYDOWN || message == WM_SYSKEYDOWN; }
bool IsPointer(UINT message) { return message >= WM_MOUSEMOVE && message <= WM_MBUTTONUP; }
bool IsCharacter(UINT message) { return message == WM_CHAR || message == WM_SYSCHAR; }

}  // namespace

Child::Child(IViewActs& acts, HWND parent, const Kind& kind, presentation::Spot spot) : acts_(acts), spot_(spot) {
  window_ = CreateWindowExW(kind.extendedStyle, kind.windowClass, L"", WS_CHILD | WS_CLIPSIBLINGS | kind.style, 0, 0, 0,
                            0, parent, nullptr, com::Module(), nullptr);
  if (window_ == nullptr) throw std::bad_alloc();
  SetPropW(window_, kProperty, this);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  before_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Child::Procedure)));
}

// The frame may have destroyed the window with its own. The procedure stays to the end: others may have put theirs
// before it, and let go of it when the window goes.
Child::~Child() {
  if (window_ == nullptr) return;
  going_ = true;
  acts_.Told().Forget(window_);
  DestroyWindow(window_);
}

Child* Child::Of(HWND window) { return window == nullptr ? nullptr : static_cast<Child*>(GetPropW(window, kProperty)); }

void Child::SetText(const std::wstring& text) {
  if (text == Text()) return;
  text_ = text;
  SetWindowTextW(window_, text.c_str());
}

std::wstring Child::Text() const {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window_)), L'\0');
  GetWindowTextW(window_, text.data(), static_cast<int>(text.size()) + 1);
  return text;
}

void Child::SetFont(HFONT font) {
  if (font == font_) return;
  font_ = font;
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void Child::Enable(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  EnableWindow(window_, enabled ? TRUE : FALSE);
}

void Child::Show(bool shown) {
  if (shown == shown_) return;
  shown_ = shown;
  ShowWindow(window_, shown ? SW_SHOWNA : SW_HIDE);
}

void Child::Place(const RECT& rect) {
  if (EqualRect(&rect, &rect_) != FALSE) return;
  rect_ = rect;
  SetWindowPos(window_, nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void Child::Describe(const std::wstring& name, const std::wstring& description) {
  if (name != name_) acts_.Told().TellName(window_, name);
  if (description != description_) acts_.Told().TellDescription(window_, description);
  name_ = name;
  description_ = description;
}

LRESULT Child::Default(UINT message, WPARAM word, LPARAM number) {
  return CallWindowProcW(before_, window_, message, word, number);
}

LRESULT Child::OnMessage(UINT message, WPARAM word, LPARAM number) { return Default(message, word, number); }

LRESULT CALLBACK Child::Procedure(HWND window, UINT message, WPARAM word, LPARAM number) noexcept {
  // Of these windows it is known that they are a child's; by its property each message would ask for it anew.
  auto* const child = reinterpret_cast<Child*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (child == nullptr) return DefWindowProcW(window, message, word, number);
  try {
    const Hold hold = child->acts_.Held();
    return child->Handle(message, word, number);
  } catch (...) {  // nothing may be thrown into the system's loop
    return 0;
  }
}

// A key that is taken may have let the child go.
LRESULT Child::Handle(UINT message, WPARAM word, LPARAM number) {
  const HWND window = window_;
  if (message == WM_NCDESTROY) {
    RemovePropW(window, kProperty);
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    window_ = nullptr;
    return CallWindowProcW(before_, window, message, word, number);
  }
  if (going_) return Default(message, word, number);
  if (IsPointer(message)) acts_.Pointed({window, message, word, number, 0, {}});
  if (IsKey(message) || IsCharacter(message)) {
    if (IsCharacter(message) && eats_) return 0;
    const bool taken = acts_.TakeKey({window, message, word, number, 0, {}});
    if (Of(window) != this) return 0;
    if (IsKey(message)) eats_ = taken;
    if (taken) return 0;
  }
  if ((message == WM_KEYUP || message == WM_SYSKEYUP) && acts_.TakeKey({window, message, word, number, 0, {}}))
    return 0;
  switch (message) {
    case WM_SETFOCUS: {
      const LRESULT result = OnMessage(message, word, number);
      if (Of(window) == this) acts_.Came(spot_);
      return result;
    }
    case WM_KILLFOCUS: {
      eats_ = false;
      const LRESULT result = OnMessage(message, word, number);
      if (Of(window) == this) acts_.Left(reinterpret_cast<HWND>(word));
      return result;
    }
    case WM_MOUSEWHEEL:
      acts_.Wheel(GET_WHEEL_DELTA_WPARAM(word));
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS | Default(message, word, number);
    case WM_CONTEXTMENU:
      if (!spot_.control) break;
      acts_.ShowMenu(spot_.control, {static_cast<short>(LOWORD(number)), static_cast<short>(HIWORD(number))});
      return 0;
    default:
      break;
  }
  return OnMessage(message, word, number);
}

}  // namespace htr60::view

#include "windows/view/tips.h"

#include "windows/base/module.h"

namespace htr60::view {
namespace {

constexpr int kWidest = 480;  // 1/96 inch: longer texts go on in a second line

TOOLINFOW ToolOf(HWND owner, HWND tool) {
  TOOLINFOW info{};
  info.cbSize = sizeof info;
  info.uFlags = TTF_IDISHWND;  // not subclassed: that would cost at every message of every window
  info.hwnd = owner;
  info.uId = reinterpret_cast<UINT_PTR>(tool);
  info.lpszText = LPSTR_TEXTCALLBACKW;
  return info;
}

}  // namespace

Tips::Tips(HWND owner)
    : owner_(owner),
      window_(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0,
                              0, owner, nullptr, com::Module(), nullptr)) {}

void Tips::Take(const Look& look) {
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(look.Handle(Look::Font::kPlain)), FALSE);
  SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, look.Pixels(kWidest));
}

Tips::~Tips() { DestroyWindow(window_); }

void Tips::Add(HWND tool) {
  TOOLINFOW info = ToolOf(owner_, tool);
  SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info));
}

void Tips::Remove(HWND tool) {
  TOOLINFOW info = ToolOf(owner_, tool);
  SendMessageW(window_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&info));
}

void Tips::Relay(const MSG& message) const {
  MSG relayed = message;
  SendMessageW(window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

bool Tips::Answer(NMHDR& header, const std::function<std::wstring(HWND)>& textOf) {
  if (header.hwndFrom != window_ || header.code != TTN_GETDISPINFOW) return false;
  auto& asked = reinterpret_cast<NMTTDISPINFOW&>(header);
  text_ = textOf(reinterpret_cast<HWND>(header.idFrom));
  asked.lpszText = text_.data();
  return true;
}

}  // namespace htr60::view

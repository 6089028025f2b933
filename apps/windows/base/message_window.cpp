#include "windows/base/message_window.h"

#include <new>

#include "windows/base/module.h"

namespace htr60::com {
namespace {

constexpr wchar_t kClass[] = L"Htr60MessageWindow";

}  // namespace

MessageWindow::MessageWindow() {
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.lpfnWndProc = &MessageWindow::Procedure;
  description.hInstance = Module();
  description.lpszClassName = kClass;
  RegisterClassExW(&description);  // fails where it is registered already
  window_ = CreateWindowExW(0, kClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, Module(), nullptr);
  if (window_ == nullptr) throw std::bad_alloc();
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

MessageWindow::~MessageWindow() {
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  DestroyWindow(window_);
}

LRESULT CALLBACK MessageWindow::Procedure(HWND window, UINT message, WPARAM word, LPARAM number) noexcept {
  auto* const self = reinterpret_cast<MessageWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr || (message != WM_TIMER && message < WM_APP)) {
    return DefWindowProcW(window, message, word, number);
  }
  try {
    self->OnMessage(message, word);
  } catch (...) {  // nothing may be thrown into the system's loop
  }
  return 0;
}

}  // namespace htr60::com

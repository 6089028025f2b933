#include "windows/view/window.h"

#include <new>

#include "windows/base/module.h"

namespace htr60::view {

Window::Window(const wchar_t* windowClass, HWND parent, DWORD style, DWORD extendedStyle) {
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.style = CS_DBLCLKS;
  description.lpfnWndProc = &Window::Procedure;
  description.hInstance = com::Module();
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.lpszClassName = windowClass;
  RegisterClassExW(&description);  // fails where it is registered already
  window_ =
      CreateWindowExW(extendedStyle, windowClass, L"", style, 0, 0, 0, 0, parent, nullptr, com::Module(), nullptr);
  if (window_ == nullptr) throw std::bad_alloc();
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

// The frame may have destroyed it with its own.
Window::~Window() {
  if (window_ == nullptr) return;
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  DestroyWindow(window_);
}

RECT Window::Client() const {
  RECT client{};
  GetClientRect(window_, &client);
  return client;
}

LRESULT Window::OnMessage(UINT message, WPARAM word, LPARAM number) {
  return DefWindowProcW(window_, message, word, number);
}

LRESULT CALLBACK Window::Procedure(HWND window, UINT message, WPARAM word, LPARAM number) noexcept {
  auto* const self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, word, number);
  if (message == WM_ERASEBKGND) return 1;  // everything is painted
  if (message == WM_NCDESTROY) {
    self->window_ = nullptr;
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    return DefWindowProcW(window, message, word, number);
  }
  try {
    const Hold hold = self->Held();
    return self->OnMessage(message, word, number);
  } catch (...) {  // nothing may be thrown into the system's loop
    return 0;
  }
}

Window::Buffer::Buffer(HWND window) : window_(window) {
  const HDC screen = BeginPaint(window, &paint_);
  const RECT& part = paint_.rcPaint;
  if (screen == nullptr || IsRectEmpty(&part) != FALSE) return;
  bitmap_ = CreateCompatibleBitmap(screen, part.right - part.left, part.bottom - part.top);
  context_ = CreateCompatibleDC(screen);
  if (context_ == nullptr || bitmap_ == nullptr) return;
  before_ = SelectObject(context_, bitmap_);
  SetViewportOrgEx(context_, -part.left, -part.top, nullptr);
}

Window::Buffer::~Buffer() {
  const RECT& part = paint_.rcPaint;
  if (before_ != nullptr) {
    SetViewportOrgEx(context_, 0, 0, nullptr);
    BitBlt(paint_.hdc, part.left, part.top, part.right - part.left, part.bottom - part.top, context_, 0, 0, SRCCOPY);
    SelectObject(context_, before_);
  }
  if (context_ != nullptr) DeleteDC(context_);
  if (bitmap_ != nullptr) DeleteObject(bitmap_);
  EndPaint(window_, &paint_);
}

}  // namespace htr60::view

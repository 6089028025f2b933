#pragma once

#include <memory>

#include "windows/base/com_ptr.h"
#include "windows/view/canvas.h"
#include "windows/win.h"

namespace htr60::view {

/// Keeps the view and the object that it belongs to while one of its windows handles a message: in a call out the frame
/// may let both go.
struct Hold {
  com::ComPtr<IUnknown> owner;  ///< goes after the view
  std::shared_ptr<void> view;
};

/// A window with a procedure of our own.
class Window {
 public:
  /// Throws `std::bad_alloc` where there is no window to be had.
  Window(const wchar_t* windowClass, HWND parent, DWORD style, DWORD extendedStyle = 0);
  virtual ~Window();
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  HWND Handle() const { return window_; }
  RECT Client() const;
  void Invalidate(const RECT* part = nullptr) const { InvalidateRect(window_, part, FALSE); }

 protected:
  virtual Hold Held() = 0;
  /// What it throws goes no further.
  virtual LRESULT OnMessage(UINT message, WPARAM word, LPARAM number);
  /// Paints by way of a bitmap, so that nothing flickers.
  template <class Body>
  void Paint(const Look& look, Body&& body) {
    const Buffer buffer(window_);
    if (buffer.Context() != nullptr) body(Canvas(buffer.Context(), look), buffer.Part());
  }

 private:
  class Buffer {
   public:
    explicit Buffer(HWND window);
    ~Buffer();
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;
    HDC Context() const { return context_; }
    const RECT& Part() const { return paint_.rcPaint; }

   private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC context_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
  };

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM number) noexcept;

  HWND window_ = nullptr;
};

}  // namespace htr60::view

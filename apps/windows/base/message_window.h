#pragma once

#include "windows/win.h"

namespace htr60::com {

/// A window that is never seen: messages and timers of one object, in the thread that made it.
class MessageWindow {
 public:
  /// Throws `std::bad_alloc` where there is no window to be had.
  MessageWindow();
  virtual ~MessageWindow();
  MessageWindow(const MessageWindow&) = delete;
  MessageWindow& operator=(const MessageWindow&) = delete;

  HWND Handle() const { return window_; }

 protected:
  /// May destroy the object at its end; what it throws goes no further.
  virtual void OnMessage(UINT message, WPARAM word) = 0;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM number) noexcept;

  HWND window_ = nullptr;
};

}  // namespace htr60::com

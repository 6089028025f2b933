#pragma once

#include <string>
#include <string_view>

#include "form/layout.h"
#include "presentation/focus.h"
#include "windows/view/accessible.h"
#include "windows/view/window.h"
#include "windows/win.h"

namespace htr60::view {

/// What the windows of the view tell it.
class IViewActs {
 public:
  virtual ~IViewActs() = default;
  virtual Hold Held() = 0;
  virtual const Accessible& Told() const = 0;
  /// A key for the window with the focus. True where it was taken.
  virtual bool TakeKey(const MSG& message) = 0;
  /// The pointer, or something outside, has brought the focus to a spot.
  virtual void Came(presentation::Spot spot) = 0;
  /// The focus has left the view's windows for `other`, null for none.
  virtual void Left(HWND other) = 0;
  /// The pointer moves over a window of the view, or presses there.
  virtual void Pointed(const MSG& message) = 0;
  /// Text from the clipboard for a field. True where it was taken as columns.
  virtual bool Paste(ControlId field, std::wstring_view text) = 0;
  /// The menu of a field, at a place of the screen.
  virtual void ShowMenu(ControlId field, POINT at) = 0;
  /// Something was done that shows at the next turn.
  virtual void Acted() = 0;
  /// The wheel turns over the page.
  virtual void Wheel(int notches) = 0;
};

/// A window of the system that the focus can go to, with its keys and its focus led through the view.
class Child {
 public:
  struct Kind {
    const wchar_t* windowClass;
    DWORD style;
    DWORD extendedStyle = 0;
  };

  /// Throws `std::bad_alloc` where there is no window to be had.
  Child(IViewActs& acts, HWND parent, const Kind& kind, presentation::Spot spot);
  virtual ~Child();
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  HWND Handle() const { return window_; }
  presentation::Spot Spot() const { return spot_; }
  IViewActs& Acts() const { return acts_; }
  void SetText(const std::wstring& text);
  std::wstring Text() const;
  void SetFont(HFONT font);
  void Enable(bool enabled);
  void Show(bool shown);
  bool IsShown() const { return shown_; }
  void Place(const RECT& rect);
  const RECT& Rect() const { return rect_; }
  /// What assistive technology is told.
  void Describe(const std::wstring& name, const std::wstring& description);
  const std::wstring& Name() const { return name_; }
  const std::wstring& Description() const { return description_; }

  /// The child of a window; null where it is none of ours.
  static Child* Of(HWND window);

 protected:
  /// What the system's own procedure does.
  LRESULT Default(UINT message, WPARAM word, LPARAM number);
  virtual LRESULT OnMessage(UINT message, WPARAM word, LPARAM number);

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM number) noexcept;
  LRESULT Handle(UINT message, WPARAM word, LPARAM number);

  IViewActs& acts_;
  HWND window_ = nullptr;
  WNDPROC before_ = nullptr;
  presentation::Spot spot_;
  std::wstring text_;
  HFONT font_ = nullptr;
  RECT rect_{};
  bool shown_ = false;
  bool enabled_ = true;
  bool going_ = false;
  bool eats_ = false;  // the character of a key that was taken
  std::wstring name_;
  std::wstring description_;
};

}  // namespace htr60::view

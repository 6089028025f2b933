#pragma once

#include <functional>
#include <string>

#include "windows/view/controls.h"
#include "windows/view/look.h"

namespace htr60::view {

/// The tooltips of the windows below one window, asked for when they are shown.
class Tips {
 public:
  /// `owner` gets the question as a notification; it hands it to `Answer`.
  explicit Tips(HWND owner);
  ~Tips();
  Tips(const Tips&) = delete;
  Tips& operator=(const Tips&) = delete;

  /// In the style of `look`, whose font outlives the next call.
  void Take(const Look& look);
  void Add(HWND tool);
  void Remove(HWND tool);
  /// What the pointer does over a window below the owner.
  void Relay(const MSG& message) const;
  /// True where the notification is the question for a text; `textOf` answers it.
  bool Answer(NMHDR& header, const std::function<std::wstring(HWND)>& textOf);

 private:
  HWND owner_;
  HWND window_;
  std::wstring text_;
};

}  // namespace htr60::view

#pragma once

#include <vector>

#include "windows/win.h"

namespace htr60::client {

inline BOOL CALLBACK AddWindow(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

/// The windows below one, all of them.
inline std::vector<HWND> Below(HWND root) {
  std::vector<HWND> windows;
  EnumChildWindows(root, &AddWindow, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

/// All windows of this thread, those below others too.
inline std::vector<HWND> WindowsOfThread() {
  std::vector<HWND> tops;
  EnumThreadWindows(GetCurrentThreadId(), &AddWindow, reinterpret_cast<LPARAM>(&tops));
  std::vector<HWND> all = tops;
  for (const HWND top : tops) {
    const std::vector<HWND> below = Below(top);
    all.insert(all.end(), below.begin(), below.end());
  }
  return all;
}

}  // namespace htr60::client

#pragma once

#include <string>

#include "windows/win.h"

namespace htr60::view {

/// Name and description of a window for assistive technology, in place of what the system would say.
void Describe(HWND window, const std::wstring& name, const std::wstring& description);
/// Before the window goes.
void Forget(HWND window);

}  // namespace htr60::view

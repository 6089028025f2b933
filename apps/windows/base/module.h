#pragma once

#include <string>

#include "windows/win.h"

namespace htr60::com {

/// The DLL that this code is part of.
HINSTANCE Module();
/// The file of the DLL; empty where the system does not tell.
std::wstring ModuleFile();
/// The DLL stays loaded until the process ends.
void PinModule();

}  // namespace htr60::com

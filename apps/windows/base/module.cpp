#include "windows/base/module.h"

namespace htr60::com {

HINSTANCE Module() {
  static const char here = 0;
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&here), &module);
  return module;
}

std::wstring ModuleFile() {
  std::wstring path(32768, L'\0');  // no path is longer
  path.resize(GetModuleFileNameW(Module(), path.data(), static_cast<DWORD>(path.size())));
  return path;
}

void PinModule() {
  static const char here = 0;
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                     reinterpret_cast<LPCWSTR>(&here), &module);
}

}  // namespace htr60::com

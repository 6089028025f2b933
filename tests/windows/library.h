#pragma once

#include "cases.h"
#include "windows/base/com_ptr.h"
#include "windows/win.h"

namespace htr60::client {

using com::ComPtr;

/// A DLL by its file, without any registration.
class Library {
 public:
  explicit Library(const char* file) : module_(LoadLibraryA(file)) { CHECK(module_ != nullptr); }

  ComPtr<IClassFactory> Factory(const CLSID& id) const {
    ComPtr<IClassFactory> factory;
    CHECK(GetClass(id, IID_IClassFactory, reinterpret_cast<void**>(factory.Out())) == S_OK);
    return factory;
  }
  HRESULT GetClass(const CLSID& id, const IID& interfaceId, void** object) const {
    return Find<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(id, interfaceId, object);
  }
  template <class Interface>
  ComPtr<Interface> Create(const CLSID& id, const IID& interfaceId) const {
    ComPtr<Interface> object;
    CHECK(Factory(id)->CreateInstance(nullptr, interfaceId, reinterpret_cast<void**>(object.Out())) == S_OK);
    return object;
  }
  LONG LiveObjects() const { return Find<LONG(WINAPI*)()>("DllLiveObjects")(); }
  HRESULT CanUnloadNow() const { return Find<HRESULT(WINAPI*)()>("DllCanUnloadNow")(); }
  HMODULE Module() const { return module_; }

 private:
  template <class Function>
  Function Find(const char* name) const {
    const FARPROC found = GetProcAddress(module_, name);
    CHECK_FOR(name, found != nullptr);
    return reinterpret_cast<Function>(reinterpret_cast<void*>(found));
  }

  HMODULE module_;
};

/// The cases of a program that is given a DLL; `library` is that one meanwhile.
inline int RunWithLibrary(int count, char** arguments, const Library*& library, std::span<const Case> cases) {
  if (count != 2) return 2;
  OleInitialize(nullptr);
  const Library dll(arguments[1]);
  library = &dll;
  const int result = RunCases(cases);
  OleUninitialize();
  return result;
}

}  // namespace htr60::client

// The entries of the DLL.

#include "windows/base/entry.h"
#include "windows/base/hand_out.h"
#include "windows/base/server.h"
#include "windows/win.h"

namespace htr60::com {
namespace {

class Factory final : public IClassFactory, private Counted {
 public:
  HRESULT WINAPI QueryInterface(REFIID id, void** object) override {
    return HandOut({{IID_IUnknown, this}, {IID_IClassFactory, this}}, id, object);
  }
  ULONG WINAPI AddRef() override { return CountUp(); }
  ULONG WINAPI Release() override { return CountDown(); }

  HRESULT WINAPI CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    return outer != nullptr ? CLASS_E_NOAGGREGATION : kServedClass.create(id, object);
  }
  // The library stays anyway.
  HRESULT WINAPI LockServer(BOOL) override { return S_OK; }
};

/// Registers, or undoes it, with COM at hand whatever the caller has made of this thread.
HRESULT Install(bool install, Scope scope) {
  return Entry(nullptr, [&] {
    const bool entered = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    const HRESULT result = install ? Register(kServedClass, scope) : Unregister(kServedClass, scope);
    if (entered) CoUninitialize();
    return result;
  });
}

}  // namespace
}  // namespace htr60::com

STDAPI DllGetClassObject(REFCLSID id, REFIID interfaceId, LPVOID* object) {
  using namespace htr60::com;
  return Entry(nullptr, [&]() -> HRESULT {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (!IsEqualCLSID(id, kServedClass.id)) return CLASS_E_CLASSNOTAVAILABLE;
    const auto factory = ComPtr<IClassFactory>::Attach(new Factory);
    return factory->QueryInterface(interfaceId, object);
  });
}

// Whoever holds an object of ours, or runs in its window's procedure, is not counted anywhere.
STDAPI DllCanUnloadNow() { return S_FALSE; }

STDAPI DllRegisterServer() { return htr60::com::Install(true, htr60::com::Scope::kMachine); }

STDAPI DllUnregisterServer() { return htr60::com::Install(false, htr60::com::Scope::kMachine); }

/// `/i:user` of regsvr32 stands for the user alone.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  using htr60::com::Scope;
  const bool user = commandLine != nullptr && lstrcmpiW(commandLine, L"user") == 0;
  if (!user && commandLine != nullptr && *commandLine != L'\0') return E_INVALIDARG;
  return htr60::com::Install(install != FALSE, user ? Scope::kUser : Scope::kMachine);
}

/// How many objects live, for whoever looks for a leak.
STDAPI_(LONG) DllLiveObjects() { return htr60::com::LiveObjects(); }

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(module);
  return TRUE;
}

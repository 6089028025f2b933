#include <array>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "windows/base/entry.h"
#include "windows/base/module.h"
#include "windows/base/server.h"
#include "windows/win.h"

// The headers of the cross compiler do not have these two, the library does.
extern "C" {
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* helpFolder);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID id, WORD major, WORD minor, LCID locale, SYSKIND kind);
}

namespace htr60::com {
namespace {

#ifdef _WIN64
constexpr SYSKIND kSystem = SYS_WIN64;
#else
constexpr SYSKIND kSystem = SYS_WIN32;
#endif

struct KeyValue {
  std::wstring key;   ///< below the classes
  std::wstring name;  ///< of the value; empty: the key's own
  std::wstring value;
};

std::wstring TextOfId(const GUID& id) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

/// Access to a type library and its identity.
class TypeLibrary {
 public:
  TypeLibrary() {
    if (FAILED(LoadTypeLibEx(ModuleFile().c_str(), REGKIND_NONE, library_.Out()))) return;
    TLIBATTR* attributes = nullptr;
    if (FAILED(library_->GetLibAttr(&attributes))) return;
    id_ = attributes->guid;
    library_->ReleaseTLibAttr(attributes);
    found_ = true;
  }
  bool Found() const { return found_; }
  const GUID& Id() const { return id_; }
  ITypeLib* Get() const { return library_.Get(); }

 private:
  ComPtr<ITypeLib> library_;
  GUID id_{};
  bool found_ = false;
};

std::vector<KeyValue> EntriesOf(const ServedClass& served, const std::wstring& libraryId) {
  const std::wstring id = TextOfId(served.id);
  const std::wstring key = L"CLSID\\" + id;
  std::vector<KeyValue> entries{
      {key, L"", served.title},
      {key + L"\\InprocServer32", L"", ModuleFile()},
      {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {key + L"\\ProgID", L"", served.progIdVersion},
      {key + L"\\VersionIndependentProgID", L"", served.progId},
      {key + L"\\Programmable", L"", L""},
      {served.progIdVersion, L"", served.title},
      {std::wstring(served.progIdVersion) + L"\\CLSID", L"", id},
      {served.progId, L"", served.title},
      {std::wstring(served.progId) + L"\\CLSID", L"", id},
      {std::wstring(served.progId) + L"\\CurVer", L"", served.progIdVersion},
  };
  if (!served.isControl) return entries;
  const KeyValue control[] = {
      {key + L"\\Control", L"", L""},
      {key + L"\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}", L"", L""},
      {key + L"\\MiscStatus", L"", L"0"},
      {key + L"\\MiscStatus\\1", L"", std::to_wstring(kControlStatus)},
      {key + L"\\TypeLib", L"", libraryId},
      {key + L"\\Version", L"", L"1.0"},
  };
  entries.insert(entries.end(), std::begin(control), std::end(control));
  return entries;
}

/// The classes of the machine or the user.
class Classes {
 public:
  explicit Classes(Scope scope) {
    const HKEY root = scope == Scope::kMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    status_ = RegCreateKeyExW(root, L"Software\\Classes", 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key_, nullptr);
  }
  ~Classes() {
    if (key_ != nullptr) RegCloseKey(key_);
  }
  Classes(const Classes&) = delete;
  Classes& operator=(const Classes&) = delete;

  HRESULT Result() const { return HRESULT_FROM_WIN32(static_cast<DWORD>(status_)); }

  void Write(const KeyValue& entry) {
    if (status_ != ERROR_SUCCESS) return;
    HKEY key = nullptr;
    status_ = RegCreateKeyExW(key_, entry.key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    if (status_ != ERROR_SUCCESS) return;
    status_ = RegSetValueExW(key, entry.name.empty() ? nullptr : entry.name.c_str(), 0, REG_SZ,
                             reinterpret_cast<const BYTE*>(entry.value.c_str()),
                             static_cast<DWORD>((entry.value.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
  }
  void Remove(const std::wstring& key) {
    if (status_ != ERROR_SUCCESS) return;
    const LSTATUS removed = RegDeleteTreeW(key_, key.c_str());
    if (removed != ERROR_FILE_NOT_FOUND) status_ = removed;
  }
  /// Of a user who has registered nothing else, the key above ours.
  void RemoveIfEmpty(const wchar_t* name) {
    if (status_ != ERROR_SUCCESS) return;
    HKEY key = nullptr;
    if (RegOpenKeyExW(key_, name, 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    DWORD keys = 0;
    DWORD values = 0;
    const bool counted = RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                                          nullptr, nullptr, nullptr) == ERROR_SUCCESS;
    RegCloseKey(key);
    if (counted && keys == 0 && values == 0) RegDeleteKeyW(key_, name);
  }

 private:
  HKEY key_ = nullptr;
  LSTATUS status_ = ERROR_SUCCESS;
};

HRESULT RegisterLibrary(const TypeLibrary& library, Scope scope) {
  if (!library.Found()) return TYPE_E_CANTLOADLIBRARY;
  std::wstring file = ModuleFile();
  return scope == Scope::kMachine ? RegisterTypeLib(library.Get(), file.data(), nullptr)
                                  : RegisterTypeLibForUser(library.Get(), file.data(), nullptr);
}

HRESULT UnregisterLibrary(const TypeLibrary& library, Scope scope) {
  if (!library.Found()) return TYPE_E_CANTLOADLIBRARY;
  // What the removal of one that is not there answers differs.
  BSTR path = nullptr;
  const bool registered = SUCCEEDED(QueryPathOfRegTypeLib(library.Id(), 1, 0, LOCALE_NEUTRAL, &path));
  SysFreeString(path);
  if (!registered) return S_OK;
  const HRESULT removed = scope == Scope::kMachine
                              ? UnRegisterTypeLib(library.Id(), 1, 0, LOCALE_NEUTRAL, kSystem)
                              : UnRegisterTypeLibForUser(library.Id(), 1, 0, LOCALE_NEUTRAL, kSystem);
  return removed == TYPE_E_REGISTRYACCESS ? S_OK : removed;  // it was registered in the other scope
}

}  // namespace

HRESULT Register(const ServedClass& served, Scope scope) {
  const TypeLibrary library;
  HRESULT result = served.isControl ? RegisterLibrary(library, scope) : S_OK;
  if (SUCCEEDED(result)) {
    Classes classes(scope);
    for (const KeyValue& entry : EntriesOf(served, TextOfId(library.Id()))) classes.Write(entry);
    result = classes.Result();
  }
  if (FAILED(result)) Unregister(served, scope);  // nothing stays half
  return result;
}

HRESULT Unregister(const ServedClass& served, Scope scope) {
  Classes classes(scope);
  classes.Remove(L"CLSID\\" + TextOfId(served.id));
  classes.RemoveIfEmpty(L"CLSID");
  classes.Remove(served.progIdVersion);
  classes.Remove(served.progId);
  const HRESULT removed = classes.Result();
  if (!served.isControl) return removed;
  const HRESULT library = UnregisterLibrary(TypeLibrary(), scope);
  return FAILED(removed) ? removed : library;
}

}  // namespace htr60::com

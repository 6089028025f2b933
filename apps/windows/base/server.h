#pragma once

#include "windows/win.h"

namespace htr60::com {

/// What frames may do with the control: it draws itself, in place, and wants its site before anything else.
inline constexpr DWORD kControlStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                                        OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;

/// The one class that a DLL serves.
struct ServedClass {
  CLSID id;
  const wchar_t* progId;         ///< without a version
  const wchar_t* progIdVersion;  ///< with it
  const wchar_t* title;
  bool isControl;  ///< is registered with a type library, as a control that frames may place
  HRESULT (*create)(REFIID interfaceId, void** object);  ///< nothing is thrown
};

/// Each DLL has one.
extern const ServedClass kServedClass;

/// Whose registration: the machine's, or that of the user alone.
enum class Scope { kMachine, kUser };

HRESULT Register(const ServedClass& served, Scope scope);
/// What is not there counts as removed.
HRESULT Unregister(const ServedClass& served, Scope scope);

}  // namespace htr60::com

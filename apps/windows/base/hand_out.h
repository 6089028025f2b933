#pragma once

#include <initializer_list>

#include "windows/win.h"

namespace htr60::com {

/// An interface of an object, and the id by which it is asked for.
struct Handed {
  template <class Interface>
  Handed(const IID& its, Interface* handed) : id(its), pointer(handed), counted(handed) {}

  const IID& id;
  void* pointer;
  IUnknown* counted;
};

/// Answers QueryInterface: the first of that id, counted once more; E_NOINTERFACE where there is none, E_POINTER
/// without a place for it.
inline HRESULT HandOut(std::initializer_list<Handed> all, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  for (const Handed& one : all) {
    if (!IsEqualIID(id, one.id)) continue;
    one.counted->AddRef();
    *object = one.pointer;
    return S_OK;
  }
  return E_NOINTERFACE;
}

}  // namespace htr60::com

#pragma once

#include <new>
#include <string>

#include "windows/base/com_ptr.h"
#include "windows/win.h"

namespace htr60::com {

/// What ends a member with a result other than success.
struct ComFailure {
  HRESULT result = E_FAIL;
  UINT argument = 0;        ///< of a wrong argument: its number, from 0
  std::wstring sentence{};  ///< for a script's user; with DISP_E_EXCEPTION
};

/// Runs the body of an entry from outside: `object` lives until it has ended, and nothing thrown leaves it.
template <class Body>
HRESULT Entry(IUnknown* object, Body&& body) noexcept {
  const ComPtr<IUnknown> hold(object);
  try {
    return body();
  } catch (const ComFailure& failure) {
    return failure.result;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

/// Counts the references to an object, and the objects of the library.
class Counted {
 public:
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 protected:
  Counted();
  virtual ~Counted();

  ULONG CountUp() { return static_cast<ULONG>(InterlockedIncrement(&references_)); }
  ULONG CountDown();

 private:
  LONG references_ = 1;
};

/// How many objects of this library live; any thread.
LONG LiveObjects();

}  // namespace htr60::com

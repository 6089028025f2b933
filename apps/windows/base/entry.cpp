#include "windows/base/entry.h"

#include "windows/base/module.h"

namespace htr60::com {
namespace {

LONG liveObjects = 0;

}  // namespace

// The first object keeps the library for good: a manager may hold a receiver for longer than anybody counts.
Counted::Counted() {
  PinModule();
  InterlockedIncrement(&liveObjects);
}

Counted::~Counted() { InterlockedDecrement(&liveObjects); }

ULONG Counted::CountDown() {
  const LONG left = InterlockedDecrement(&references_);
  if (left == 0) {
    // What is let go in the destructor may count the object up and down once more.
    references_ = 1;
    delete this;
  }
  return static_cast<ULONG>(left);
}

LONG LiveObjects() { return InterlockedCompareExchange(&liveObjects, 0, 0); }

}  // namespace htr60::com

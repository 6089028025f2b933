#pragma once

#include <utility>

#include "windows/win.h"

namespace htr60::com {

/// A counted reference to an interface.
template <class T>
class ComPtr {
 public:
  ComPtr() = default;
  /// Counts one more.
  explicit ComPtr(T* object) : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ~ComPtr() { Reset(); }
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  /// Takes over a reference that is counted already.
  static ComPtr Attach(T* object) {
    ComPtr pointer;
    pointer.object_ = object;
    return pointer;
  }
  /// The interface `id` of `object`, or null; what answers with success and nothing counts as null.
  static ComPtr Of(IUnknown* object, REFIID id) {
    void* found = nullptr;
    if (object == nullptr || FAILED(object->QueryInterface(id, &found))) return {};
    return Attach(static_cast<T*>(found));
  }

  // Released last: the object may let the holder go, who must find nothing here.
  void Reset() {
    if (T* const object = std::exchange(object_, nullptr)) object->Release();
  }
  T* Get() const { return object_; }
  T* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  T** Out() {
    Reset();
    return &object_;
  }

 private:
  T* object_ = nullptr;
};

}  // namespace htr60::com

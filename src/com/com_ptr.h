// A counted reference to an interface.
#pragma once

#include <utility>

#include "com/automation.h"

namespace quill::com {

template <class T>
class ComPtr {
 public:
  ComPtr() noexcept = default;
  // Takes a reference of its own.
  explicit ComPtr(T* object) noexcept : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }
  ComPtr(const ComPtr& other) noexcept : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() { Reset(); }

  // Takes over the caller's reference.
  [[nodiscard]] static ComPtr Adopt(T* object) noexcept {
    ComPtr adopted;
    adopted.object_ = object;
    return adopted;
  }

  [[nodiscard]] T* get() const noexcept { return object_; }
  T* operator->() const noexcept { return object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }

  // For calls that may put another reference in the place of this one.
  [[nodiscard]] T** address() noexcept { return &object_; }
  // For calls that hand a reference out.
  [[nodiscard]] T** Receive() noexcept {
    Reset();
    return &object_;
  }
  [[nodiscard]] void** ReceiveVoid() noexcept { return reinterpret_cast<void**>(Receive()); }
  [[nodiscard]] T* Detach() noexcept { return std::exchange(object_, nullptr); }
  void Reset() noexcept {
    if (T* object = std::exchange(object_, nullptr)) object->Release();
  }

 private:
  T* object_ = nullptr;
};

}  // namespace quill::com

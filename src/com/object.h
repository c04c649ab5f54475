// Objects that other programs' code holds by counted references.
#pragma once

#include <atomic>
#include <type_traits>

#include "com/automation.h"
#include "com/library_use.h"
#include "support/compiler.h"

namespace quill::com {

// The identifier of an interface.
template <class Interface>
[[nodiscard]] const IID& IdOf() noexcept {
  return QUILL_ID_OF(Interface);
}

// An object with those interfaces and one reference, that of its maker. It deletes itself with the
// last one, and keeps the library in use while it exists.
template <class First, class... Rest>
class Object : public First, public Rest... {
 public:
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    constexpr bool kIsAutomation = std::is_base_of_v<IDispatch, First>;
    if (IsEqualIID(wanted, IID_IUnknown) || IsEqualIID(wanted, IdOf<First>()) ||
        (kIsAutomation && IsEqualIID(wanted, IID_IDispatch))) {
      *object = static_cast<First*>(this);
    }
    ((IsEqualIID(wanted, IdOf<Rest>()) ? void(*object = static_cast<Rest*>(this)) : void()), ...);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) LetGo();
    return left;
  }

 protected:
  Object() = default;
  virtual ~Object() = default;
  // Nobody holds the object any more.
  virtual void LetGo() { delete this; }

 private:
  std::atomic<ULONG> references_ = 1;
  const LibraryUse in_use_;
};

}  // namespace quill::com

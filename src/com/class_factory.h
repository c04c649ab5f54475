// The one class factory, through which COM creates objects of every class.
#pragma once

#include <functional>
#include <utility>

#include "com/com_error.h"
#include "com/com_ptr.h"
#include "com/object.h"

namespace quill::com {

// Refuses aggregation.
class ClassFactory final : public Object<IClassFactory> {
 public:
  // `make` makes an object and asks it for the interface `wanted`; it may throw.
  using Make = std::function<HRESULT(REFIID wanted, void** object)>;
  explicit ClassFactory(Make make) : make_(std::move(make)) {}

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID wanted, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return Guarded(IID_IClassFactory, [&] { return make_(wanted, object); });
  }
  STDMETHODIMP LockServer(BOOL lock) override {
    lock != FALSE ? LibraryUse::Begin() : LibraryUse::End();
    return S_OK;
  }

 private:
  const Make make_;
};

[[nodiscard]] inline ComPtr<IClassFactory> MakeClassFactory(ClassFactory::Make make) {
  return ComPtr<IClassFactory>::Adopt(new ClassFactory(std::move(make)));
}

}  // namespace quill::com

// The one class factory, for all classes.
#include "com/class_factory.h"

#include <utility>

#include "com/com_error.h"
#include "com/object.h"

namespace quill::com {
namespace {

class ClassFactory final : public Object<IClassFactory> {
 public:
  explicit ClassFactory(std::function<HRESULT(REFIID, void**)> make) : make_(std::move(make)) {}

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
  const std::function<HRESULT(REFIID, void**)> make_;
};

}  // namespace

ComPtr<IClassFactory> MakeClassFactory(std::function<HRESULT(REFIID, void**)> make) {
  return ComPtr<IClassFactory>::Adopt(new ClassFactory(std::move(make)));
}

}  // namespace quill::com

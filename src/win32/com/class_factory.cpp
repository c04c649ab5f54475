#include "win32/com/class_factory.h"

#include <atomic>

#include "win32/com/com_error.h"
#include "win32/com/com_ptr.h"
#include "win32/com/library.h"
#include "win32/com/plugin_object.h"

namespace quill::com {
namespace {

class ClassFactory final : public IClassFactory {
 public:
  STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
    if (object == nullptr) return E_POINTER;
    const bool known = IsEqualIID(wanted, IID_IUnknown) || IsEqualIID(wanted, IID_IClassFactory);
    *object = known ? static_cast<IClassFactory*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID wanted, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return Guarded(IID_IClassFactory, [&] { return MakePluginObject(wanted, object); });
  }
  STDMETHODIMP LockServer(BOOL lock) override {
    if (lock != FALSE) {
      Library::Get().Use();
    } else {
      Library::Get().EndUse();
    }
    return S_OK;
  }

 private:
  ~ClassFactory() = default;

  std::atomic<ULONG> references_ = 1;
  const LibraryUse in_use_;
};

}  // namespace

HRESULT MakeClassFactory(REFIID wanted, void** object) {
  const auto factory = ComPtr<IClassFactory>::Adopt(new ClassFactory);
  return factory->QueryInterface(wanted, object);
}

}  // namespace quill::com

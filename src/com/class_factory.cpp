#include "com/class_factory.h"

#include "com/com_error.h"

namespace quill::com {

STDMETHODIMP ClassFactory::QueryInterface(REFIID wanted, void** object) {
  if (object == nullptr) return E_POINTER;
  const bool known = IsEqualIID(wanted, IID_IUnknown) || IsEqualIID(wanted, IID_IClassFactory);
  *object = known ? static_cast<IClassFactory*>(this) : nullptr;
  if (!known) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) ClassFactory::AddRef() {
  return ++references_;
}

STDMETHODIMP_(ULONG) ClassFactory::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID wanted, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  return Guarded(IID_IClassFactory, [&] { return Make(wanted, object); });
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
  if (lock != FALSE) {
    LibraryUse::Begin();
  } else {
    LibraryUse::End();
  }
  return S_OK;
}

}  // namespace quill::com

// A class factory, through which COM creates objects; what is left to write is how one is made.
#pragma once

#include <atomic>

#include "com/automation.h"
#include "com/library_use.h"

namespace quill::com {

// Has one reference, that of its maker; it deletes itself with the last one. It refuses
// aggregation, and keeps the library in use while it exists.
class ClassFactory : public IClassFactory {
 public:
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;

  STDMETHODIMP QueryInterface(REFIID wanted, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID wanted, void** object) override;
  STDMETHODIMP LockServer(BOOL lock) override;

 protected:
  ClassFactory() = default;
  virtual ~ClassFactory() = default;

 private:
  // Makes an object and asks it for `wanted`; may throw.
  virtual HRESULT Make(REFIID wanted, void** object) = 0;

  std::atomic<ULONG> references_ = 1;
  const LibraryUse in_use_;
};

}  // namespace quill::com

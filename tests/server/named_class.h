// Makes one object creatable by name inside this process, as long as it lives.
#pragma once

#include <gtest/gtest.h>

#include <utility>

#include "com/com_ptr.h"
#include "server/class_registration.h"

namespace quill::com {

class NamedClass {
 public:
  NamedClass(TextView prog_id, ComPtr<IDispatch> object)
      : prog_id_(prog_id), former_id_(ReadProgId(RegistrationScope::kMachine, prog_id)) {
    GUID id{};
    EXPECT_EQ(::CoCreateGuid(&id), S_OK);
    WriteProgId(RegistrationScope::kMachine, prog_id_, GuidText(id));  // throws
    const auto factory = ComPtr<IClassFactory>::Adopt(new Factory(std::move(object)));
    EXPECT_EQ(::CoRegisterClassObject(id, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                      &registered_),
              S_OK);
  }
  ~NamedClass() {
    ::CoRevokeClassObject(registered_);
    WriteProgId(RegistrationScope::kMachine, prog_id_, former_id_);
  }
  NamedClass(const NamedClass&) = delete;
  NamedClass& operator=(const NamedClass&) = delete;

 private:
  class Factory final : public IClassFactory {
   public:
    explicit Factory(ComPtr<IDispatch> object) : object_(std::move(object)) {}
    STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
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
    STDMETHODIMP CreateInstance(IUnknown*, REFIID wanted, void** object) override {
      return object_->QueryInterface(wanted, object);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

   private:
    ~Factory() = default;
    ULONG references_ = 1;
    const ComPtr<IDispatch> object_;
  };

  const Text prog_id_;
  const Text former_id_;
  DWORD registered_ = 0;
};

}  // namespace quill::com

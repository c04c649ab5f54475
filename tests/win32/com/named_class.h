// Makes one object creatable by name inside this process, as long as it lives.
#pragma once

#include <gtest/gtest.h>

#include <utility>

#include "win32/com/bstr.h"
#include "win32/com/com_ptr.h"

namespace quill::com {

class NamedClass {
 public:
  NamedClass(TextView prog_id, ComPtr<IDispatch> object)
      : key_(Concat({u"Software\\Classes\\", prog_id})) {
    GUID id{};
    EXPECT_EQ(::CoCreateGuid(&id), S_OK);
    const auto factory = ComPtr<IClassFactory>::Adopt(new Factory(std::move(object)));
    EXPECT_EQ(::CoRegisterClassObject(id, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                      &registered_),
              S_OK);
    wchar_t text[40];
    const int length = ::StringFromGUID2(id, text, 40);
    const Text id_key = Concat({key_, u"\\CLSID"});
    EXPECT_EQ(::RegSetKeyValueW(HKEY_LOCAL_MACHINE, WideOf(id_key), nullptr, REG_SZ, text,
                                static_cast<DWORD>(length) * sizeof(wchar_t)),
              ERROR_SUCCESS);
  }
  ~NamedClass() {
    ::CoRevokeClassObject(registered_);
    ::RegDeleteTreeW(HKEY_LOCAL_MACHINE, WideOf(key_));
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

  Text key_;
  DWORD registered_ = 0;
};

}  // namespace quill::com

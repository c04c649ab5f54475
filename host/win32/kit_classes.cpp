#include "host/win32/kit_classes.h"

#include "plugin/host_services.h"
#include "support/runtime_error.h"
#include "win32/com/bstr.h"
#include "win32/com/com_error.h"

namespace quill::host {
namespace {

struct KitClass {
  TextView prog_id;
  CLSID id;
  com::ComPtr<IDispatch> (*make)(const KitServices&);
};
constexpr KitClass kKits[] = {
    {kFileKitProgId,
     {0x3D0F6C27, 0x9B1E, 0x4F58, {0x86, 0xC4, 0x52, 0xA7, 0xE0, 0x9D, 0x31, 0x6B}},
     MakeFileKitObject},
    {kMemoryKitProgId,
     {0x81B5E94A, 0x6C70, 0x43D2, {0xAF, 0x19, 0xE8, 0x04, 0x7B, 0xC6, 0x25, 0xD3}},
     MakeMemoryKitObject},
};

class KitFactory final : public IClassFactory {
 public:
  KitFactory(const KitServices& services, const KitClass& kit) : services_(services), kit_(kit) {}

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
    return com::Guarded(IID_IClassFactory, [&] {
      if (services_.before_creation) services_.before_creation(kit_.prog_id);
      return kit_.make(services_)->QueryInterface(wanted, object);
    });
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }

 private:
  ~KitFactory() = default;
  ULONG references_ = 1;
  const KitServices services_;
  const KitClass& kit_;
};

Text KeyOf(TextView prog_id) {
  return Concat({u"Software\\Classes\\", prog_id});
}

bool WriteName(HKEY root, const KitClass& kit) {
  wchar_t id[40];
  const int length = ::StringFromGUID2(kit.id, id, 40);
  const Text key = Concat({KeyOf(kit.prog_id), u"\\CLSID"});
  HKEY made = nullptr;
  if (::RegCreateKeyExW(root, com::WideOf(key), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_WRITE,
                        nullptr, &made, nullptr) != ERROR_SUCCESS) {
    return false;
  }
  const LSTATUS written =
      ::RegSetValueExW(made, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(id),
                       static_cast<DWORD>(length) * sizeof(wchar_t));
  ::RegCloseKey(made);
  return written == ERROR_SUCCESS;
}

}  // namespace

KitClasses::KitClasses(const KitServices& services) {
  try {
    for (std::size_t i = 0; i < std::size(kKits); ++i) {
      const KitClass& kit = kKits[i];
      const auto factory = com::ComPtr<IClassFactory>::Adopt(new KitFactory(services, kit));
      const HRESULT result = ::CoRegisterClassObject(kit.id, factory.get(), CLSCTX_INPROC_SERVER,
                                                     REGCLS_MULTIPLEUSE, &classes_[i]);
      if (FAILED(result)) throw com::ErrorOf(result);
      for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        if (roots_[i] == nullptr && WriteName(root, kit)) roots_[i] = root;
      }
      if (roots_[i] == nullptr) throw RuntimeError(ErrorNumber::kPermissionDenied);
    }
  } catch (...) {
    Withdraw();
    throw;
  }
}

KitClasses::~KitClasses() {
  Withdraw();
}

void KitClasses::Withdraw() noexcept {
  for (std::size_t i = 0; i < std::size(kKits); ++i) {
    if (classes_[i] != 0) (void)::CoRevokeClassObject(classes_[i]);
    if (roots_[i] != nullptr) {
      const Text key = KeyOf(kKits[i].prog_id);
      (void)::RegDeleteTreeW(roots_[i], com::WideOf(key));
    }
  }
}

}  // namespace quill::host

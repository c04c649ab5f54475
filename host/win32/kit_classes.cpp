// The kits' class objects, and the registry entries under which they are found.
#include "host/win32/kit_classes.h"

#include "com/class_factory.h"
#include "com/com_error.h"
#include "plugin/host_services.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

using com::RegistrationScope;

constexpr KitClass kKits[] = {
    {{kFileKitProgId,
      u"File kit of the Quillstart reference host",
      {0x3D0F6C27, 0x9B1E, 0x4F58, {0x86, 0xC4, 0x52, 0xA7, 0xE0, 0x9D, 0x31, 0x6B}}},
     MakeFileKitObject},
    {{kMemoryKitProgId,
      u"Memory kit of the Quillstart reference host",
      {0x81B5E94A, 0x6C70, 0x43D2, {0xAF, 0x19, 0xE8, 0x04, 0x7B, 0xC6, 0x25, 0xD3}}},
     MakeMemoryKitObject},
};

}  // namespace

std::span<const KitClass, 2> KitClassTable() noexcept {
  return kKits;
}

com::ComPtr<IClassFactory> MakeKitFactory(const KitServices& services, const KitClass& kit) {
  return com::MakeClassFactory([services, &kit](REFIID wanted, void** object) {
    if (services.before_creation) services.before_creation(kit.registered.prog_id);
    return kit.make(services)->QueryInterface(wanted, object);
  });
}

// The other constructor has finished by then, so that a failure here runs the destructor, which
// withdraws what was offered.
KitClasses::KitClasses(const KitServices& services) : KitClasses() {
  for (std::size_t i = 0; i < std::size(kKits); ++i) {
    const KitClass& kit = kKits[i];
    const HRESULT result = ::CoRegisterClassObject(
        kit.registered.id, MakeKitFactory(services, kit).get(), CLSCTX_INPROC_SERVER,
        REGCLS_MULTIPLEUSE, &offered_[i].class_object);
    if (FAILED(result)) throw com::ErrorOf(result);
    Name(offered_[i], kit);
  }
}

void KitClasses::Name(Offered& offered, const KitClass& kit) {
  const Text id = com::GuidText(kit.registered.id);
  const auto name_for = [&](RegistrationScope scope) {
    offered.former_id = com::ReadProgId(scope, kit.registered.prog_id);
    offered.scope = scope;
    com::WriteProgId(scope, kit.registered.prog_id, id);
    offered.is_named = true;
  };
  try {
    name_for(RegistrationScope::kMachine);
  } catch (const RuntimeError&) {
    name_for(RegistrationScope::kUser);
  }
}

KitClasses::~KitClasses() {
  for (std::size_t i = 0; i < std::size(kKits); ++i) {
    const Offered& offered = offered_[i];
    if (offered.class_object != 0) (void)::CoRevokeClassObject(offered.class_object);
    if (!offered.is_named) continue;
    try {
      com::WriteProgId(offered.scope, kKits[i].registered.prog_id, offered.former_id);
    } catch (const RuntimeError&) {
    }
  }
}

}  // namespace quill::host

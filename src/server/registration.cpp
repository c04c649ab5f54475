// Writing and removing all that a host finds the library by. The platform registers type libraries
// itself, but what it removes would be too much.
#include "server/registration.h"

#include "com/bstr.h"
#include "com/com_error.h"
#include "com/com_ptr.h"
#include "com/identifiers.h"
#include "support/compiler.h"
#include "win32/system_services.h"

// Of Windows Vista and later; the cross compilers' headers have only what is for the machine.
#ifdef QUILL_HEADERS_ARE_SHORT
extern "C" {
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* help_folder);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID library, WORD major, WORD minor, LCID locale,
                                        SYSKIND system);
}
#endif

namespace quill::com {
namespace {

constexpr RegisteredClass kPluginClass = {kProgId,     kClassName,    kClassId,
                                          &kLibraryId, kLibraryMajor, kLibraryMinor};

void RegisterTypes(RegistrationScope scope) {
  const Text path = win32::ThisModulePath();
  ComPtr<ITypeLib> types;
  HRESULT result = ::LoadTypeLibEx(WideOf(path), REGKIND_NONE, types.Receive());
  if (SUCCEEDED(result)) {
    auto* wide = const_cast<LPOLESTR>(WideOf(path));
    result = scope == RegistrationScope::kMachine
                 ? ::RegisterTypeLib(types.get(), wide, nullptr)
                 : ::RegisterTypeLibForUser(types.get(), wide, nullptr);
  }
  if (FAILED(result)) throw ErrorOf(result);
}

// The system's own function also removes the interface that the library of the other bitness needs.
void UnregisterTypes(RegistrationScope scope) {
  constexpr bool kIs64 = sizeof(void*) == 8;
  const Text types = Concat({u"TypeLib\\", GuidText(kLibraryId)});
  const Text version = Concat({types, u"\\", Decimal(kLibraryMajor), u".", Decimal(kLibraryMinor)});
  const Text file = Concat({version, kIs64 ? u"\\0\\win64" : u"\\0\\win32"});
  const Text interface_key = Concat({u"Interface\\", GuidText(kInterfaceId)});
  if (IsElsewhere(ReadEntry(scope, file))) return;
  const bool is_last =
      ReadEntry(scope, Concat({version, kIs64 ? u"\\0\\win32" : u"\\0\\win64"})).empty();
  // Wine writes those of the user among the machine's, where only Wine finds them.
  if (scope == RegistrationScope::kUser && is_last) {
    (void)::UnRegisterTypeLibForUser(kLibraryId, kLibraryMajor, kLibraryMinor, 0,
                                     kIs64 ? SYS_WIN64 : SYS_WIN32);
  }
  RemoveTree(scope, file);
  RemoveTree(scope, interface_key);
  if (is_last) {
    RemoveTree(scope, version);
    RemoveIfEmpty(scope, types);
    RemoveTree(scope, interface_key, RegistryView::kOther);
  }
  if (scope == RegistrationScope::kUser) {
    for (const TextView group : {u"TypeLib", u"Interface"}) RemoveIfEmpty(scope, group);
  }
}

}  // namespace

HRESULT Register(RegistrationScope scope) noexcept {
  const HRESULT result = Guarded(IID_IUnknown, [&] {
    WriteClass(scope, kPluginClass);
    RegisterTypes(scope);
    return S_OK;
  });
  if (FAILED(result)) (void)Unregister(scope);
  return result;
}

HRESULT Unregister(RegistrationScope scope) noexcept {
  // One that cannot be removed does not keep the other.
  const auto attempt = [](const auto& remove) {
    return Guarded(IID_IUnknown, [&] { return remove(), S_OK; });
  };
  const HRESULT without_class = attempt([&] { RemoveClass(scope, kPluginClass); });
  const HRESULT without_types = attempt([&] { UnregisterTypes(scope); });
  return FAILED(without_class) ? without_class : without_types;
}

}  // namespace quill::com

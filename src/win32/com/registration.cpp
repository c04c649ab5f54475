#include "win32/com/registration.h"

#include <algorithm>
#include <iterator>

#include "support/compiler.h"
#include "win32/com/bstr.h"
#include "win32/com/com_error.h"
#include "win32/com/com_ptr.h"
#include "win32/com/identifiers.h"
#include "win32/win32_process_paths.h"

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
    LPOLESTR wide = const_cast<LPOLESTR>(WideOf(path));
    result = scope == RegistrationScope::kMachine
                 ? ::RegisterTypeLib(types.get(), wide, nullptr)
                 : ::RegisterTypeLibForUser(types.get(), wide, nullptr);
  }
  if (FAILED(result)) throw ErrorOf(result);
}

void UnregisterTypes(RegistrationScope scope) {
  constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
  const HRESULT result =
      scope == RegistrationScope::kMachine
          ? ::UnRegisterTypeLib(kLibraryId, kLibraryMajor, kLibraryMinor, 0, kSystem)
          : ::UnRegisterTypeLibForUser(kLibraryId, kLibraryMajor, kLibraryMinor, 0, kSystem);
  // Systems say in different ways that it is not there.
  constexpr HRESULT kNotThere[] = {TYPE_E_REGISTRYACCESS, TYPE_E_LIBNOTREGISTERED, E_INVALIDARG};
  if (FAILED(result) && std::ranges::find(kNotThere, result) == std::end(kNotThere)) {
    throw ErrorOf(result);
  }
  if (scope == RegistrationScope::kUser) {
    for (const TextView group : {u"TypeLib", u"Interface"}) RemoveUsersGroupIfEmpty(group);
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
  return Guarded(IID_IUnknown, [&] {
    UnregisterTypes(scope);
    RemoveClass(scope, kPluginClass);
    return S_OK;
  });
}

}  // namespace quill::com

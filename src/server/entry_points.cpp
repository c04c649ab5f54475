// The library's exports: what the loader, COM and the registration tools call.

#include "com/automation.h"
#include "com/class_factory.h"
#include "com/com_error.h"
#include "com/identifiers.h"
#include "server/library.h"
#include "server/plugin_object.h"
#include "server/registration.h"

using quill::com::Guarded;
using quill::com::Library;
using quill::com::RegistrationScope;

extern "C" {

STDAPI DllGetClassObject(REFCLSID class_id, REFIID wanted, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (!IsEqualCLSID(class_id, quill::com::kClassId)) return CLASS_E_CLASSNOTAVAILABLE;
  return Guarded(IID_IUnknown, [&] {
    const auto factory = quill::com::MakeClassFactory(&quill::com::MakePluginObject);
    Library::Get().StayLoaded();
    return factory->QueryInterface(wanted, object);
  });
}

STDAPI DllCanUnloadNow() {
  const HRESULT ready =
      Guarded(IID_IUnknown, [] { return Library::Get().ReadyToUnload() ? S_OK : S_FALSE; });
  // COM knows these two answers; a failure to find out keeps the library loaded.
  return ready == S_OK ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return quill::com::Register(RegistrationScope::kMachine);
}

STDAPI DllUnregisterServer() {
  return quill::com::Unregister(RegistrationScope::kMachine);
}

// Called by regsvr32 /i, with what follows the colon.
STDAPI DllInstall(BOOL install, LPCWSTR command_line) {
  const RegistrationScope scope = quill::com::ScopeOf(command_line);
  return install != FALSE ? quill::com::Register(scope) : quill::com::Unregister(scope);
}

}  // extern "C"

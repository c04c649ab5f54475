// The library's exports: what the loader, COM and the registration tools call.

#include <cwchar>

#include "win32/com/automation.h"
#include "win32/com/class_factory.h"
#include "win32/com/com_error.h"
#include "win32/com/identifiers.h"
#include "win32/com/library.h"
#include "win32/com/registration.h"

using quill::com::Guarded;
using quill::com::Library;
using quill::com::RegistrationScope;

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) {
    ::DisableThreadLibraryCalls(instance);
    Library::Get().SetInstance(instance);
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID class_id, REFIID wanted, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (!IsEqualCLSID(class_id, quill::com::kClassId)) return CLASS_E_CLASSNOTAVAILABLE;
  return Guarded(IID_IUnknown, [&] { return quill::com::MakeClassFactory(wanted, object); });
}

STDAPI DllCanUnloadNow() {
  const HRESULT ready =
      Guarded(IID_IUnknown, [] { return Library::Get().ReadyToUnload() ? S_OK : S_FALSE; });
  return ready == S_OK ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return quill::com::Register(RegistrationScope::kMachine);
}

STDAPI DllUnregisterServer() {
  return quill::com::Unregister(RegistrationScope::kMachine);
}

// "user" as the command line registers for the current user only, without elevation.
STDAPI DllInstall(BOOL install, LPCWSTR command_line) {
  const bool for_user = command_line != nullptr && _wcsicmp(command_line, L"user") == 0;
  const RegistrationScope scope = for_user ? RegistrationScope::kUser : RegistrationScope::kMachine;
  return install != FALSE ? quill::com::Register(scope) : quill::com::Unregister(scope);
}

}  // extern "C"

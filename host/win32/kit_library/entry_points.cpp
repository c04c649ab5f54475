// The exports of the kits' library, and the one set of services behind its objects, which belongs
// to the thread that first used it.

#include <windows.h>

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "com/class_factory.h"
#include "com/com_error.h"
#include "com/object.h"
#include "host/kit/error_journal.h"
#include "host/kit/file_kit.h"
#include "host/kit/file_storage.h"
#include "host/win32/kit_library/robot_object.h"
#include "host/win32/kit_object.h"
#include "server/registration.h"
#include "support/host_environment.h"
#include "win32/system_services.h"
#include "win32/win32_file_system.h"

namespace quill::host {
namespace {

using com::RegistrationScope;

constexpr KitClass kRobotClass = {
    {kRobotProgId,
     u"Robot operator of the Quillstart reference host",
     {0x5A2E7D13, 0xC84F, 0x4B90, {0x92, 0x6D, 0x17, 0xF3, 0x4C, 0x88, 0xBE, 0x05}}},
    [](const KitServices&) { return MakeRobotObject(); }};
std::array<const KitClass*, 3> Classes() {
  return {&KitClassTable()[0], &KitClassTable()[1], &kRobotClass};
}

// Where the kits keep their own files: the folder that QUILL_HOST_ROOT names, otherwise that of the
// host's program.
Text HostRoot() {
  std::array<wchar_t, 32768> named{};
  const DWORD length = ::GetEnvironmentVariableW(L"QUILL_HOST_ROOT", named.data(), named.size());
  if (length > 0 && length < named.size()) {
    return Text(reinterpret_cast<const char16_t*>(named.data()), length);
  }
  win32::Win32ProcessPaths paths;
  return HostFolder(paths);
}

struct Services {
  win32::Win32FileSystem files;
  DiskStorage storage{[](TextView path) { return std::filesystem::path(Text(path)); }};
  ErrorJournal journal{HostRoot(), files, storage};
  HostFileKit file_kit{storage, journal};
  ContractLog contract;
};
std::optional<Services> services;

KitServices ServicesOfKits() {
  if (!services) services.emplace();
  KitServices served{services->file_kit, services->contract, ::GetCurrentThreadId()};
  served.are_calls_checked = false;
  return served;
}

com::ComPtr<IClassFactory> FactoryOf(REFCLSID class_id) {
  for (const KitClass* made : Classes()) {
    if (IsEqualCLSID(class_id, made->registered.id)) return MakeKitFactory(ServicesOfKits(), *made);
  }
  return {};
}

template <class Body>
HRESULT ForEachClass(Body&& body) {
  return com::Guarded(IID_IUnknown, [&] {
    for (const KitClass* made : Classes()) body(made->registered);
    return S_OK;
  });
}

HRESULT Unregister(RegistrationScope scope) {
  return ForEachClass(
      [&](const com::RegisteredClass& registered) { com::RemoveClass(scope, registered); });
}

HRESULT Register(RegistrationScope scope) {
  const HRESULT result = ForEachClass(
      [&](const com::RegisteredClass& registered) { com::WriteClass(scope, registered); });
  if (FAILED(result)) (void)host::Unregister(scope);
  return result;
}

}  // namespace
}  // namespace quill::host

extern "C" {

STDAPI DllGetClassObject(REFCLSID class_id, REFIID wanted, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  return quill::com::Guarded(IID_IUnknown, [&] {
    const auto factory = quill::host::FactoryOf(class_id);
    return factory ? factory->QueryInterface(wanted, object) : CLASS_E_CLASSNOTAVAILABLE;
  });
}

STDAPI DllCanUnloadNow() {
  return quill::com::LibraryUse::Any() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() {
  return quill::host::Register(quill::com::RegistrationScope::kMachine);
}

STDAPI DllUnregisterServer() {
  return quill::host::Unregister(quill::com::RegistrationScope::kMachine);
}

STDAPI DllInstall(BOOL install, LPCWSTR command_line) {
  const auto scope = quill::com::ScopeOf(command_line);
  return install != FALSE ? quill::host::Register(scope) : quill::host::Unregister(scope);
}

}  // extern "C"

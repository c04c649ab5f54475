#include "host/win32/plugin_library.h"

#include "com/com_error.h"
#include "com/identifiers.h"
#include "support/host_environment.h"
#include "support/version.h"
#include "win32/win32_process_paths.h"

namespace quill::host {
namespace {

using EntryPoint = HRESULT(STDAPICALLTYPE*)();
using InstallPoint = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);

}  // namespace

PluginLibrary::PluginLibrary(const Text& path) : LoadedLibrary(path) {
  HRESULT result = Entry<EntryPoint>("DllRegisterServer")();
  if (FAILED(result)) {
    for_user_ = true;
    result = Entry<InstallPoint>("DllInstall")(TRUE, L"user");
  }
  if (FAILED(result)) throw com::ErrorOf(result);
}

PluginLibrary::~PluginLibrary() {
  if (for_user_) {
    (void)Entry<InstallPoint>("DllInstall")(FALSE, L"user");
  } else {
    (void)Entry<EntryPoint>("DllUnregisterServer")();
  }
}

com::LateBound PluginLibrary::MakePlugin() const {
  return com::LateBound::Create(com::kProgId);
}

Text LibraryBesideProgram() {
  win32::Win32ProcessPaths paths;
  return Concat({HostFolder(paths), u"\\", kLibraryFileName});
}

}  // namespace quill::host

#include "host/win32/plugin_library.h"

#include "support/host_environment.h"
#include "support/runtime_error.h"
#include "support/version.h"
#include "win32/com/bstr.h"
#include "win32/com/com_error.h"
#include "win32/win32_process_paths.h"

namespace quill::host {
namespace {

using EntryPoint = HRESULT(STDAPICALLTYPE*)();
using InstallPoint = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);

template <class Function>
Function EntryOf(HMODULE module, const char* name) {
  const FARPROC found = ::GetProcAddress(module, name);
  if (found == nullptr) {
    throw RuntimeError(ErrorNumber::kCannotCreateObject,
                       Concat({u"The library does not export ", FromUtf8(name)}));
  }
  return reinterpret_cast<Function>(reinterpret_cast<void*>(found));
}

}  // namespace

PluginLibrary::PluginLibrary(const Text& path) : module_(::LoadLibraryW(com::WideOf(path))) {
  if (module_ == nullptr) {
    throw RuntimeError(ErrorNumber::kFileNotFound,
                       Concat({u"The library cannot be loaded: ", path}));
  }
  HRESULT result = EntryOf<EntryPoint>(module_, "DllRegisterServer")();
  if (FAILED(result)) {
    for_user_ = true;
    result = EntryOf<InstallPoint>(module_, "DllInstall")(TRUE, L"user");
  }
  if (FAILED(result)) {
    ::FreeLibrary(module_);
    throw com::ErrorOf(result);
  }
}

PluginLibrary::~PluginLibrary() {
  if (for_user_) {
    (void)EntryOf<InstallPoint>(module_, "DllInstall")(FALSE, L"user");
  } else {
    (void)EntryOf<EntryPoint>(module_, "DllUnregisterServer")();
  }
  ::FreeLibrary(module_);
}

bool PluginLibrary::CanUnload() const noexcept {
  return EntryOf<EntryPoint>(module_, "DllCanUnloadNow")() == S_OK;
}

Text LibraryBesideProgram() {
  win32::Win32ProcessPaths paths;
  return Concat({HostFolder(paths), u"\\", kLibraryFileName});
}

}  // namespace quill::host

// The entry points that every automation library exports, as a host calls them.
#include "host/win32/plugin_library.h"

#include "com/bstr.h"
#include "com/com_error.h"
#include "com/identifiers.h"
#include "support/host_environment.h"
#include "support/runtime_error.h"
#include "support/version.h"
#include "win32/system_services.h"

namespace quill::host {
namespace {

using EntryPoint = HRESULT(STDAPICALLTYPE*)();
using InstallPoint = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);
using ClassPoint = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);

}  // namespace

LoadedLibrary::LoadedLibrary(const Text& path) : module_(::LoadLibraryW(com::WideOf(path))) {
  if (module_ == nullptr) {
    throw RuntimeError(ErrorNumber::kFileNotFound,
                       Concat({u"The library cannot be loaded: ", path}));
  }
}

LoadedLibrary::~LoadedLibrary() {
  ::FreeLibrary(module_);
}

void* LoadedLibrary::FindEntry(const char* name) const {
  const FARPROC found = ::GetProcAddress(module_, name);
  if (found == nullptr) {
    throw RuntimeError(ErrorNumber::kCannotCreateObject,
                       Concat({u"The library does not export ", FromUtf8(name)}));
  }
  return reinterpret_cast<void*>(found);
}

bool LoadedLibrary::CanUnload() const {
  return Entry<EntryPoint>("DllCanUnloadNow")() == S_OK;
}

com::LateBound LoadedLibrary::MakePlugin() const {
  com::ComPtr<IClassFactory> factory;
  com::ComPtr<IDispatch> plugin;
  HRESULT result = Entry<ClassPoint>("DllGetClassObject")(com::kClassId, IID_IClassFactory,
                                                          factory.ReceiveVoid());
  if (SUCCEEDED(result)) {
    result = factory->CreateInstance(nullptr, IID_IDispatch, plugin.ReceiveVoid());
  }
  com::ThrowIfFailed(result);
  return com::LateBound(plugin.get());
}

PluginLibrary::PluginLibrary(const Text& path) : LoadedLibrary(path) {
  HRESULT result = Entry<EntryPoint>("DllRegisterServer")();
  if (FAILED(result)) {
    for_user_ = true;
    result = Entry<InstallPoint>("DllInstall")(TRUE, L"user");
  }
  com::ThrowIfFailed(result);
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

#include "host/win32/loaded_library.h"

#include "com/bstr.h"
#include "com/com_error.h"
#include "com/identifiers.h"
#include "support/runtime_error.h"

namespace quill::host {

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
  return Entry<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")() == S_OK;
}

com::LateBound LoadedLibrary::MakePlugin() const {
  const auto get_class =
      Entry<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
  com::ComPtr<IClassFactory> factory;
  com::ComPtr<IDispatch> plugin;
  HRESULT result = get_class(com::kClassId, IID_IClassFactory, factory.ReceiveVoid());
  if (SUCCEEDED(result)) {
    result = factory->CreateInstance(nullptr, IID_IDispatch, plugin.ReceiveVoid());
  }
  if (FAILED(result)) throw com::ErrorOf(result);
  return com::LateBound(plugin.get());
}

}  // namespace quill::host

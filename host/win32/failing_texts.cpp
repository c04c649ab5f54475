#include "host/win32/failing_texts.h"

#include <oleauto.h>

#include "host/win32/import_table.h"

namespace quill::host {
namespace {

FARPROC* import = nullptr;
FARPROC real_function = nullptr;

BSTR WINAPI Refuse(const OLECHAR*, UINT) {
  Redirect(import, real_function);
  return nullptr;
}

}  // namespace

bool RefuseNextText(HMODULE module) noexcept {
  FARPROC* const found = FindImport(module, L"oleaut32.dll", "SysAllocStringLen");
  if (found == nullptr) return false;
  import = found;
  real_function = *found;
  Redirect(import, reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&Refuse)));
  return true;
}

}  // namespace quill::host

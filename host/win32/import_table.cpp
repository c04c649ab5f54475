// Where an import stands in the loaded image, and a string function that fails once.
#include "host/win32/import_table.h"

#include <oleauto.h>

namespace quill::host {
namespace {

FARPROC* text_import = nullptr;
FARPROC text_function = nullptr;

BSTR WINAPI RefuseText(const OLECHAR*, UINT) {
  Redirect(text_import, text_function);
  return nullptr;
}

}  // namespace

FARPROC* FindImport(HMODULE module, const wchar_t* library, const char* function) noexcept {
  auto* const base = reinterpret_cast<BYTE*>(module);
  const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos.e_lfanew);
  const DWORD imports =
      headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  // By the address, because a function may be imported by its ordinal.
  const FARPROC wanted = GetProcAddress(GetModuleHandleW(library), function);
  if (imports == 0 || wanted == nullptr) return nullptr;
  const auto* from = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports);
  for (; from->Name != 0; ++from) {
    auto* place = reinterpret_cast<FARPROC*>(base + from->FirstThunk);
    for (; *place != nullptr; ++place) {
      if (*place == wanted) return place;
    }
  }
  return nullptr;
}

void Redirect(FARPROC* import, FARPROC target) noexcept {
  DWORD protection = 0;
  if (!VirtualProtect(import, sizeof *import, PAGE_READWRITE, &protection)) return;
  *import = target;
  VirtualProtect(import, sizeof *import, protection, &protection);
}

bool RefuseNextText(HMODULE module) noexcept {
  FARPROC* const found = FindImport(module, L"oleaut32.dll", "SysAllocStringLen");
  if (found == nullptr) return false;
  text_import = found;
  text_function = *found;
  Redirect(found, reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&RefuseText)));
  return true;
}

}  // namespace quill::host

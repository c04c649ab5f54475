#include "host/win32/failing_texts.h"

#include <oleauto.h>

namespace quill::host {
namespace {

using Allocate = BSTR(WINAPI*)(const OLECHAR*, UINT);

Allocate* slot = nullptr;  // where the module keeps the function's address

void Put(Allocate function) noexcept {
  DWORD before = 0;
  VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &before);
  *slot = function;
  VirtualProtect(slot, sizeof *slot, before, &before);
}

BSTR WINAPI Refuse(const OLECHAR*, UINT) {
  Put(&SysAllocStringLen);
  return nullptr;
}

}  // namespace

bool RefuseNextText(HMODULE module) noexcept {
  auto* const base = reinterpret_cast<BYTE*>(module);
  const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos.e_lfanew);
  const auto& imports = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  const auto* library =
      reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
  const FARPROC wanted = GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), "SysAllocStringLen");
  for (; library->Name != 0; ++library) {
    for (auto* entry = reinterpret_cast<FARPROC*>(base + library->FirstThunk); *entry != nullptr;
         ++entry) {
      if (*entry != wanted) continue;
      slot = reinterpret_cast<Allocate*>(entry);
      Put(&Refuse);
      return true;
    }
  }
  return false;
}

}  // namespace quill::host

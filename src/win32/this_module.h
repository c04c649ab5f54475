// The module that this code is linked into: the plug-in's library, or a program that tests it.
#pragma once

#include <windows.h>

namespace quill::win32 {

[[nodiscard]] inline HINSTANCE ThisModule() noexcept {
  static const char anchor = 0;
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&anchor), &module);
  return module;
}

}  // namespace quill::win32

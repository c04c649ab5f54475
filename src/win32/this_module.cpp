#include "win32/this_module.h"

namespace quill::win32 {

HINSTANCE ThisModule() noexcept {
  static const char anchor = 0;
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&anchor), &module);
  return module;
}

}  // namespace quill::win32

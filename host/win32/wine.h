// Whether the system is Wine, whose settings and registry may be thrown away, or somebody's
// Windows.
#pragma once

#include <windows.h>

namespace quill::host {

[[nodiscard]] inline bool IsWine() noexcept {
  return ::GetProcAddress(::GetModuleHandleW(L"ntdll"), "wine_get_version") != nullptr;
}

}  // namespace quill::host

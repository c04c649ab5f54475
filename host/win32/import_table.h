// The table in which a loaded module keeps the addresses of the functions that it imports.
#pragma once

#include <windows.h>

namespace quill::host {

// The place of that function of a loaded library in the module's table; null: it is not imported.
[[nodiscard]] FARPROC* FindImport(HMODULE module, const wchar_t* library,
                                  const char* function) noexcept;
void Redirect(FARPROC* import, FARPROC target) noexcept;

}  // namespace quill::host

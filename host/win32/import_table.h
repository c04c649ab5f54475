// The table in which a loaded module keeps the addresses of the functions that it imports,
// and what can be done with them.
#pragma once

#include <windows.h>

namespace quill::host {

// The place of that function of a loaded library in the module's table; null: it is not imported.
[[nodiscard]] FARPROC* FindImport(HMODULE module, const wchar_t* library,
                                  const char* function) noexcept;
void Redirect(FARPROC* import, FARPROC target) noexcept;

// The next automation string that this loaded module asks the system for is refused, as when memory
// is short; later ones are not. For tests and robots that look at what its callers are told. False
// when the module asks for none.
bool RefuseNextText(HMODULE module) noexcept;

}  // namespace quill::host

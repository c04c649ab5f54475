// Lets a module's next request for an automation string fail, as when memory is short, so that
// tests and robots can see what its callers are told.
#pragma once

#include <windows.h>

namespace quill::host {

// The next string that this loaded module asks the system for is refused; later ones are not.
// False when the module asks for none.
bool RefuseNextText(HMODULE module) noexcept;

}  // namespace quill::host

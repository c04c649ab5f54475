// The name of a control on its window: the window property "ControlName" holds a global atom of it.
#pragma once

#include <windows.h>

#include "support/text.h"

namespace quill::win32 {

void AttachControlName(HWND window, TextView name);
// Takes the property away and gives the atom back; does nothing where there is none.
void DetachControlName(HWND window) noexcept;

}  // namespace quill::win32

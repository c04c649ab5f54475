// The message box for a text that is taller than the screen: the same caption, the same text and
// one OK button as the system's, in a window that fits the work area and scrolls.
#pragma once

#include <windows.h>

#include "support/text.h"

namespace quill::win32 {

// True when the system's own box for `text` would be taller than the work area of the screen that
// `owner` (may be null) is on.
[[nodiscard]] bool NeedsScrolling(HWND owner, const Text& text) noexcept;

// Returns when the operator has closed the box, as the system's does: the owner, or without one
// every other window of the thread, takes no input meanwhile. Enter, Esc, Alt+F4 and the close
// button close it; copying without a selection copies all. 0 or less: it could not be shown.
[[nodiscard]] INT_PTR ShowScrollingBox(HWND owner, const Text& caption, const Text& text);

}  // namespace quill::win32

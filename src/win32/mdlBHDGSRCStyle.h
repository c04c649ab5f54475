// The replaced window procedure of the tab strip, which shows the strip's body in the colour of a
// picture box, without flicker. What it needs lies in three properties of the strip's window:
// "lpPROC", the procedure in place before; "PctOBJ" and "GridOBJ", the picture box and the strip,
// both of which outlive the hook.
#pragma once

#include <windows.h>

#include "ui/controls.h"

namespace quill::win32 {

// `window` is that of `strip`, and not hooked.
void AttachTabBackground(HWND window, ui::TabStrip& strip, ui::PictureBox& colour_source) noexcept;
void DetachTabBackground(HWND window) noexcept;

LRESULT CALLBACK TabBackgroundProc(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

}  // namespace quill::win32

// What a control's window tells assistive tools (screen readers, speech input) about itself.
#pragma once

#include <windows.h>

namespace quill::win32 {

// The answer of a window made here to WM_GETOBJECT: name, role, value and state of its control; all
// else as the system tells of a window of its class. 0 where the system has no such support.
[[nodiscard]] LRESULT AnswerAssistiveTool(HWND window, WPARAM wparam) noexcept;

}  // namespace quill::win32

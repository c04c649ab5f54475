// The system's file dialogs.
#pragma once

#include <windows.h>

#include <vector>

#include "ui/toolkit.h"

namespace quill::win32 {

// Shows the dialog that is asked for; the full paths that were picked, none on cancel. The
// process's current folder stays what it was. A dialog that the system cannot show fails with
// kInvalidProcedureCall and a description.
[[nodiscard]] std::vector<Text> AskForFiles(HWND owner, const ui::FileDialogRequest& request);

// The paths in what a dialog leaves in its buffer: one path, or a folder and the names in it, each
// ended by a zero unit, the whole by another.
[[nodiscard]] std::vector<Text> PathsIn(std::wstring_view buffer);

}  // namespace quill::win32

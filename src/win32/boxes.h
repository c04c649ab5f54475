// The boxes and menus that are shown on top of the dialog. Each returns when the operator has
// closed it.
#pragma once

#include <windows.h>

#include <vector>

#include "ui/control.h"
#include "ui/toolkit.h"

namespace quill::win32 {

// A message with an OK button. `owner` may be null: every other window of the thread then takes no
// input meanwhile. A box that the system cannot show fails with kInvalidProcedureCall and a
// description.
void ShowMessageBox(HWND owner, const Text& caption, const Text& text);

// Shows the items at that place of the screen; the place of the chosen one among them. -1: the menu
// was left, or it could not be shown.
[[nodiscard]] int ChooseFromMenu(HWND owner, POINT place, const std::vector<ui::MenuItem>& items);

// Shows the dialog that is asked for; the full paths that were picked, none on cancel. The
// process's current folder stays what it was. A dialog that the system cannot show fails as above.
[[nodiscard]] std::vector<Text> AskForFiles(HWND owner, const ui::FileDialogRequest& request);

// The paths in what a file dialog leaves in its buffer: one path, or a folder and the names in it,
// each ended by a zero unit, the whole by another.
[[nodiscard]] std::vector<Text> PathsIn(std::wstring_view buffer);

}  // namespace quill::win32

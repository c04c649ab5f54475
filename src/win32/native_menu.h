// The native context menu.
#pragma once

#include <windows.h>

#include <vector>

#include "ui/menu.h"

namespace quill::win32 {

// Shows the items at that place of the screen until one is chosen or the menu is left; -1: left, or
// it could not be shown.
[[nodiscard]] int ChooseFromMenu(HWND owner, POINT place, const std::vector<ui::MenuItem>& items);

}  // namespace quill::win32

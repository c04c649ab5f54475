// Pictures of the dialog's tabs, one PNG file each.
#pragma once

#include <filesystem>
#include <functional>

#include "support/text.h"

namespace quill::host {

// Turns to each tab, takes it and turns back; the moment "empty" leaves empty-1-game-settings.png
// and so on in the folder, which is made when it is missing; the same in high contrast when asked
// for. `tell` is given a line for each file.
void TakeDialogPictures(const std::filesystem::path& folder, const Text& moment, bool high_contrast,
                        const std::function<void(const Text& line)>& tell);

}  // namespace quill::host

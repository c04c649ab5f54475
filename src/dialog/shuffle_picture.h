// The picture on the button that shuffles the rotation; part of the dialog's design.
#pragma once

#include "ui/toolkit.h"

namespace quill {

[[nodiscard]] ui::PicturePtr MakeShufflePicture(ui::Toolkit& toolkit);

}  // namespace quill

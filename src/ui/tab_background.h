// The tab strip's body is shown in the colour of the dialog's frames instead of white.
#pragma once

#include "ui/controls.h"

namespace quill::ui {

// Gives the colour source its persistent image and starts the drawing.
void AttachTabBackground(TabStrip& strip, PictureBox& colour_source);
void DetachTabBackground(TabStrip& strip);

}  // namespace quill::ui

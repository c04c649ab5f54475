// Readying and dropping the drawing of the tab strip's body.
#include "ui/tab_background.h"

#include "ui/form.h"

namespace quill::ui {

void AttachTabBackground(TabStrip& strip, PictureBox& colour_source) {
  colour_source.persistent_image = true;
  strip.form().toolkit().HookTabBackground(strip, colour_source);
}

void DetachTabBackground(TabStrip& strip) {
  strip.form().toolkit().UnhookTabBackground(strip);
}

}  // namespace quill::ui

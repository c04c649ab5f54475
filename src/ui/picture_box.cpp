// A picture box: its colour and how it holds its drawing.
#include "ui/picture_box.h"

#include <utility>

namespace quill::ui {

PictureBox::PictureBox(Form& form, Text name, Colour back_colour)
    : Control(form, ControlKind::kPictureBox, std::move(name)), back_colour_(back_colour) {}

void PictureBox::SetBackColour(Colour colour) {
  back_colour_ = colour;
  Changed(Changes::kColour);
}

void PictureBox::SetPersistentImage(bool on) {
  persistent_image_ = on;
  Changed(Changes::kColour);
}

}  // namespace quill::ui

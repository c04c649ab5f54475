// An image: its picture and its mouse events.
#include "ui/image.h"

#include <utility>

namespace quill::ui {

Image::Image(Form& form, Text name) : Control(form, ControlKind::kImage, std::move(name)) {}

void Image::SetPicture(PicturePtr picture) {
  const bool was_visible = visible();
  picture_ = std::move(picture);
  Changed(was_visible == visible() ? Changes::kPicture : Changes::kPicture | Changes::kVisible);
}

void Image::SetStretch(bool stretch) {
  stretch_ = stretch;
  Changed(Changes::kPicture);
}

void Image::React(const Fact& fact) {
  if (const auto* const pressed = std::get_if<MousePressed>(&fact)) {
    Raise(u"MouseDown", on_mouse_down, pressed->event);
  } else if (const auto* const released = std::get_if<MouseReleased>(&fact)) {
    Raise(u"MouseUp", on_mouse_up, released->event);
  } else if (std::holds_alternative<MouseLost>(fact)) {
    Raise(u"MouseLost", on_mouse_lost);
  } else if (const auto* const clicked = std::get_if<Clicked>(&fact)) {
    if (clicked->repeated && !repeats_) return;
    const MouseEvent event{kLeftButton, 0, bounds().width / 2, bounds().height / 2};
    Raise(u"MouseDown", on_mouse_down, event);
    Raise(u"MouseUp", on_mouse_up, event);
  }
}

}  // namespace quill::ui

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
    Raise(u"MouseDown", on_mouse_down, Middle());
    Raise(u"MouseUp", on_mouse_up, Middle());
  } else if (const auto* const key = std::get_if<KeyReleased>(&fact)) {
    const bool ends = key->key == kSpaceKey && std::exchange(space_held_, false);
    if (ends) Raise(u"MouseUp", on_mouse_up, Middle());
  } else if (std::holds_alternative<FocusLost>(fact)) {
    LoseSpace();
  } else if (std::holds_alternative<FocusTaken>(fact)) {
    space_held_ = false;  // of a display that ended meanwhile
  }
}

bool Image::ReactToKey(const KeyStruck& key) {
  if ((key.stroke.shift & kAltHeld) != 0) return false;
  if (key.stroke.key == kSpaceKey) {
    if (!std::exchange(space_held_, true)) Raise(u"MouseDown", on_mouse_down, Middle());
    return true;
  }
  if (key.stroke.key != kEnterKey) {
    LoseSpace();
    return false;
  }
  React(Clicked{key.repeated});
  return true;
}

MouseEvent Image::Middle() const noexcept {
  return {kLeftButton, 0, bounds().width / 2, bounds().height / 2};
}

void Image::LoseSpace() {
  if (std::exchange(space_held_, false)) Raise(u"MouseLost", on_mouse_lost);
}

}  // namespace quill::ui

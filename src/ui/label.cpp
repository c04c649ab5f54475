// A label: its text and its mouse events.
#include "ui/label.h"

#include <utility>

namespace quill::ui {

Label::Label(Form& form, Text name, TextView caption, Alignment alignment)
    : Control(form, ControlKind::kLabel, std::move(name)),
      caption_(caption),
      alignment_(alignment) {}

void Label::SetCaption(TextView caption) {
  caption_ = caption;
  Changed(Changes::kText);
}

void Label::SetAlignment(Alignment alignment) {
  alignment_ = alignment;
  Changed(Changes::kText);
}

void Label::SetFontSize(int points) {
  font_size_ = points;
  Changed(Changes::kFont);
}

void Label::SetTransparent(bool transparent) {
  transparent_ = transparent;
  Changed(Changes::kColour);
}

void Label::React(const Fact& fact) {
  if (const auto* const pressed = std::get_if<MousePressed>(&fact)) {
    Raise(u"MouseDown", on_mouse_down, pressed->event);
  } else if (const auto* const released = std::get_if<MouseReleased>(&fact)) {
    Raise(u"MouseUp", on_mouse_up, released->event);
  } else if (std::holds_alternative<MouseLost>(fact)) {
    Raise(u"MouseLost", on_mouse_lost);
  }
}

}  // namespace quill::ui

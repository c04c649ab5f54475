// A push button: what it shows and its click.
#include "ui/command_button.h"

#include <utility>

namespace quill::ui {

CommandButton::CommandButton(Form& form, Text name, TextView caption, TextView icon)
    : Control(form, ControlKind::kCommandButton, std::move(name)), caption_(caption), icon_(icon) {}

void CommandButton::React(const Fact& fact) {
  const auto* const clicked = std::get_if<Clicked>(&fact);
  if (clicked != nullptr && !clicked->repeated) Raise(u"Click", on_click);
}

bool CommandButton::ReactToKey(const KeyStruck& key) {
  if (key.stroke.key != kEnterKey || (key.stroke.shift & kAltHeld) != 0) return false;
  React(Clicked{key.repeated});
  return true;
}

}  // namespace quill::ui

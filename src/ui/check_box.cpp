// A check box: its states and what a click makes of them.
#include "ui/check_box.h"

#include <utility>

#include "support/runtime_error.h"

namespace quill::ui {

CheckBox::CheckBox(Form& form, Text name, TextView caption)
    : Control(form, ControlKind::kCheckBox, std::move(name)), caption_(caption) {}

void CheckBox::SetValue(int value) {
  if (value < 0 || value > 2) throw RuntimeError(ErrorNumber::kInvalidPropertyValue);
  const bool is_new = std::exchange(value_, value) != value;
  Changed(Changes::kValue);
  if (is_new) Raise(u"Click", on_click);
}

void CheckBox::React(const Fact& fact) {
  if (std::holds_alternative<Clicked>(fact)) SetValue(value_ == 0 ? 1 : 0);
}

}  // namespace quill::ui

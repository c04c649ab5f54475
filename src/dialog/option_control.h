// The control of an option on its page, and the control's value by its kind: a text box and a
// drop-down list have a text, a check box and a list have a number (its state; the position of the
// chosen item, -1 for none).
#pragma once

#include "dialog/option_table.h"
#include "ui/form.h"

namespace quill {

// Label, control and note of an option, with its initial value; number lists stay empty.
void AddOption(ui::Form& form, const Option& option);

[[nodiscard]] bool HasNumberValue(const ui::Control& control) noexcept;
// Both fail for a control that has no such value.
[[nodiscard]] TextView TextValue(const ui::Control& control);
[[nodiscard]] int NumberValue(const ui::Control& control);
// Fails as the setters of CheckBox and ListBox do.
void SetNumberValue(ui::Control& control, int number);

// As settings files hold the value: the text, or the number in decimal.
[[nodiscard]] Text PrintedValue(const ui::Control& control);
// Takes a printed value. Of a drop-down list's items the first with that text is chosen; without
// one nothing changes. Controls that have no value stay as they are.
void SetPrintedValue(ui::Control& control, TextView value);

}  // namespace quill

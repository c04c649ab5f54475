// The one place that tells the kinds apart when a control is made and when its value is read,
// written or printed.
#include "dialog/option_value.h"

#include "support/number_text.h"
#include "support/runtime_error.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "ui/list_box.h"

namespace quill {

bool HasNumberValue(const ui::Control& control) noexcept {
  return control.kind() == ui::ControlKind::kCheckBox ||
         control.kind() == ui::ControlKind::kListBox;
}

TextView TextValue(const ui::Control& control) {
  if (const auto* box = dynamic_cast<const ui::TextBox*>(&control)) return box->text();
  return dynamic_cast<const ui::ComboBox&>(control).text();
}

int NumberValue(const ui::Control& control) {
  if (const auto* box = dynamic_cast<const ui::CheckBox*>(&control)) return box->value();
  return dynamic_cast<const ui::ListBox&>(control).ListIndex();
}

void SetNumberValue(ui::Control& control, int number) {
  if (auto* box = dynamic_cast<ui::CheckBox*>(&control)) return box->SetValue(number);
  dynamic_cast<ui::ListBox&>(control).SetListIndex(number);
}

ui::Control& AddOptionControl(ui::Form& form, ui::Control& frame, const Option& option) {
  const Text key(option.key);
  switch (option.kind) {
    case ui::ControlKind::kTextBox: {
      auto& box = form.Add<ui::TextBox>(key, &frame, option.max_length, option.alignment);
      box.SetText(option.initial_text);
      return box;
    }
    case ui::ControlKind::kCheckBox: {
      auto& box = form.Add<ui::CheckBox>(key, &frame);
      box.SetValue(option.initial_state);
      return box;
    }
    case ui::ControlKind::kListBox: {
      auto& list =
          form.Add<ui::ListBox>(key, &frame, ui::Selection::kSingle, ui::ListHeight::kSingleRow);
      for (const TextView item : option.items) list.AddItem(item);
      return list;
    }
    case ui::ControlKind::kComboBox:
      return form.Add<ui::ComboBox>(key, &frame);
    default:
      throw RuntimeError(ErrorNumber::kInternalError);
  }
}

Text PrintedValue(const ui::Control& control) {
  return HasNumberValue(control) ? Decimal(NumberValue(control)) : Text(TextValue(control));
}

void SetPrintedValue(ui::Control& control, TextView value) {
  if (HasNumberValue(control)) return SetNumberValue(control, ToInt16(value));
  if (auto* text_box = dynamic_cast<ui::TextBox*>(&control)) return text_box->SetText(value);
  auto* const list = dynamic_cast<ui::ComboBox*>(&control);
  for (int i = 0; list != nullptr && i < list->Count(); ++i) {
    if (list->Item(i) == value) return list->SetListIndex(i);
  }
}

}  // namespace quill

// The one place that tells the kinds apart when a value is read, written or printed.
#include "dialog/option_value.h"

#include "support/number_text.h"
#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/list_box.h"
#include "ui/text_box.h"

namespace quill {
namespace {

bool HasNumber(const ui::Control& control) {
  return control.kind() == ui::ControlKind::kCheckBox ||
         control.kind() == ui::ControlKind::kListBox;
}

}  // namespace

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

Text PrintedValue(const ui::Control& control) {
  return HasNumber(control) ? Decimal(NumberValue(control)) : Text(TextValue(control));
}

void SetPrintedValue(ui::Control& control, TextView value) {
  if (HasNumber(control)) return SetNumberValue(control, ToInt16(value));
  if (auto* text_box = dynamic_cast<ui::TextBox*>(&control)) return text_box->SetText(value);
  auto* const list = dynamic_cast<ui::ComboBox*>(&control);
  for (int i = 0; list != nullptr && i < list->Count(); ++i) {
    if (list->Item(i) == value) return list->SetListIndex(i);
  }
}

}  // namespace quill

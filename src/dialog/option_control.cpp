// The one place that tells the kinds apart when a control is made and when its value is read,
// written or printed.
#include "dialog/option_control.h"

#include <memory>
#include <utility>

#include "support/number_text.h"
#include "support/runtime_error.h"
#include "ui/controls.h"
#include "ui/list_box.h"

namespace quill {
namespace {

using ui::Twips;

constexpr Twips kFirstRowTop = 270;
constexpr Twips kRowPitch = 360;
constexpr Twips kBoxHeight = 285;  // text boxes and single-row lists: one row and the borders
constexpr Twips kComboHeight = 315;
constexpr Twips kCheckSize = 255;
constexpr Twips kLabelHeight = 195;
constexpr Twips kNoteGap = 120;
constexpr Twips kNoteWidth = 1620;

// Something that is centred on the option's row.
ui::Bounds InRow(const Option& option, Twips left, Twips width, Twips height) {
  const Twips top = kFirstRowTop + option.place.row * kRowPitch + (kBoxHeight - height) / 2;
  return {left + option.place.indent, top, width, height};
}

// The label of a check box clicks it, as in any dialog.
void ConnectLabel(ui::Label& label, ui::Control& box) {
  const auto pressed = std::make_shared<bool>(false);
  label.on_mouse_down = [pressed](const ui::MouseEvent& event) {
    if (event.button == ui::kLeftButton) *pressed = true;
  };
  label.on_mouse_lost = [pressed] { *pressed = false; };
  label.on_mouse_up = [pressed, &label, &box](const ui::MouseEvent& event) {
    if (event.button != ui::kLeftButton || !std::exchange(*pressed, false)) return;
    // Releasing the button elsewhere takes the press back, as it does on the box itself.
    const bool inside = event.x >= 0 && event.x < label.bounds().width && event.y >= 0 &&
                        event.y < label.bounds().height;
    if (inside) box.Happened(ui::Clicked{});
  };
}

ui::Control& AddControl(ui::Form& form, ui::Control& frame, const Option& option) {
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
      // No row of the table has another kind.
      throw RuntimeError(ErrorNumber::kInternalError);
  }
}

}  // namespace

void AddOption(ui::Form& form, const Option& option) {
  const auto& [column, row, width, indent] = option.place;
  ui::Control& frame = form.At(column.frame);
  // "txtName" -> "lblTxtName".
  Text label_name = Concat({u"lbl", option.key});
  label_name[3] = ToUpper(label_name[3]);
  auto& label = form.Add<ui::Label>(label_name, &frame, option.label);
  label.SetBounds(InRow(option, column.label_left, column.label_width, kLabelHeight));
  ui::Control& control = AddControl(form, frame, option);
  if (option.kind == ui::ControlKind::kCheckBox) {
    ConnectLabel(label, control);
    control.SetBounds(InRow(option, column.control_left, kCheckSize, kCheckSize));
  } else {
    const bool is_combo_box = option.kind == ui::ControlKind::kComboBox;
    const Twips height = is_combo_box ? kComboHeight : kBoxHeight;
    control.SetBounds(InRow(option, column.control_left, width, height));
  }
  control.tooltip = option.tooltip;
  control.accessible_name = option.label;
  if (option.note.empty()) return;
  form.Add<ui::Label>(Concat({label_name, u"Note"}), &frame, option.note)
      .SetBounds(InRow(option, column.control_left + width + kNoteGap, kNoteWidth, kLabelHeight));
}

bool HasNumberValue(const ui::Control& control) noexcept {
  return control.kind() == ui::ControlKind::kCheckBox ||
         control.kind() == ui::ControlKind::kListBox;
}

// A control of another kind ends in std::bad_cast, which a trap reports as an internal error.
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

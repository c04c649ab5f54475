// The parts that the dialog's design repeats.
#include "dialog/dialog_design.h"

#include <algorithm>
#include <deque>
#include <memory>
#include <utility>
#include <vector>

#include "dialog/option_value.h"
#include "ui/controls.h"

namespace quill {
namespace {

constexpr ui::Twips kListLabelHeight = 195;
constexpr ui::Twips kLabelGap = 15;

// "txtName" -> "lblTxtName".
Text LabelName(TextView key) {
  Text name = Concat({u"lbl", key});
  name[3] = ToUpper(name[3]);
  return name;
}

}  // namespace

ui::Frame& AddFrame(ui::Form& form, Text name, TextView caption, const ui::Bounds& bounds,
                    bool visible) {
  auto& frame = form.Add<ui::Frame>(std::move(name), nullptr, caption);
  frame.SetBounds(bounds);
  frame.SetVisible(visible);
  return frame;
}

ui::ListBox& AddMapList(ui::Form& form, ui::Control& container, Text name, Text label_name,
                        TextView label, const ui::Bounds& bounds) {
  auto& caption = form.Add<ui::Label>(std::move(label_name), &container, label);
  caption.SetBounds(
      {bounds.left, bounds.top - kLabelGap - kListLabelHeight, bounds.width, kListLabelHeight});
  auto& list = form.Add<ui::ListBox>(std::move(name), &container, ui::Selection::kExtended,
                                     ui::ListHeight::kManyRows);
  list.SetBounds(bounds);
  list.accessible_name = label;
  return list;
}

void AddOption(ui::Form& form, const Option& option) {
  ui::Control& frame = form.At(option.place.column.frame);
  auto& label = form.Add<ui::Label>(LabelName(option.key), &frame, option.label);
  label.SetBounds(LabelBounds(option));
  ui::Control& control = AddOptionControl(form, frame, option);
  if (option.kind == ui::ControlKind::kCheckBox) {
    const auto pressed = std::make_shared<bool>(false);
    label.on_mouse_down = [pressed](const ui::MouseEvent& event) {
      if (event.button == ui::kLeftButton) *pressed = true;
    };
    label.on_mouse_lost = [pressed] { *pressed = false; };
    label.on_mouse_up = [pressed, &label, &control](const ui::MouseEvent& event) {
      if (event.button != ui::kLeftButton || !std::exchange(*pressed, false)) return;
      const bool inside = event.x >= 0 && event.x < label.bounds().width && event.y >= 0 &&
                          event.y < label.bounds().height;
      if (inside) control.Happened(ui::Clicked{});
    };
  }
  control.SetBounds(ControlBounds(option));
  control.tooltip = option.tooltip;
  control.accessible_name = option.label;
  if (option.note.empty()) return;
  form.Add<ui::Label>(Concat({LabelName(option.key), u"Note"}), &frame, option.note)
      .SetBounds(NoteBounds(option));
}

void FillNumberLists(ui::Form& form) {
  const auto options = Options();
  for (auto option = options.begin(); option != options.end();) {
    const auto next = std::find_if(option, options.end(), [&](const Option& other) {
      return other.numbers != option->numbers;
    });
    const NumberRange numbers = option->numbers;
    if (numbers != NumberRange{}) {
      std::vector<ui::ListBox*> lists;
      std::deque<ui::ListBox::Refill> refills;
      for (; option != next; ++option) {
        lists.push_back(&form.Get<ui::ListBox>(option->key));
        refills.emplace_back(*lists.back());
      }
      for (int number = numbers.first; number <= numbers.last; ++number) {
        const Text item = Decimal(number);
        for (ui::ListBox* list : lists) list->AddItem(item);
      }
      for (ui::ListBox::Refill& refill : refills) refill.Finish();
    }
    option = next;
  }
}

}  // namespace quill

// A drop-down list: its items and the choice among them.
#include "ui/combo_box.h"

#include <utility>

#include "support/runtime_error.h"

namespace quill::ui {

ComboBox::ComboBox(Form& form, Text name)
    : Control(form, ControlKind::kComboBox, std::move(name)) {}

TextView ComboBox::Item(int index) const {
  if (index < 0 || index >= Count()) throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
  return rows_.TextOf(index);
}

void ComboBox::Clear() {
  rows_.Clear();
  list_index_ = -1;
  Changed(Changes::kRows | Changes::kSelection);
}

void ComboBox::AddItem(TextView text) {
  rows_.Append({text});
  Changed(Changes::kRowsAdded);
}

void ComboBox::SetListIndex(int index) {
  if (index < -1 || index >= Count()) throw RuntimeError(ErrorNumber::kInvalidPropertyValue);
  list_index_ = index;
  Changed(Changes::kSelection);
  if (index >= 0) Raise(u"Click", on_click);
}

TextView ComboBox::text() const noexcept {
  return list_index_ >= 0 ? rows_.TextOf(list_index_) : TextView();
}

void ComboBox::SetText(TextView text) {
  for (int index = 0; index < Count(); ++index) {
    if (rows_.TextOf(index) == text) return SetListIndex(index);
  }
  throw RuntimeError(ErrorNumber::kTextNotInList,
                     Concat({u"'", text, u"' is not an item of the list"}));
}

void ComboBox::React(const Fact& fact) {
  const auto* const chosen = std::get_if<ItemChosen>(&fact);
  if (chosen == nullptr) return;
  if (chosen->index < 0 || chosen->index >= Count()) return Changed(Changes::kSelection);
  list_index_ = chosen->index;
  Raise(u"Click", on_click);
}

}  // namespace quill::ui

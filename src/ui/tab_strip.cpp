// A tab strip: the choice among its captions.
#include "ui/tab_strip.h"

#include <utility>

namespace quill::ui {

TabStrip::TabStrip(Form& form, Text name, std::vector<Text> captions)
    : Control(form, ControlKind::kTabStrip, std::move(name)), captions_(std::move(captions)) {}

void TabStrip::React(const Fact& fact) {
  const auto* const chosen = std::get_if<TabChosen>(&fact);
  if (chosen == nullptr) return;
  if (chosen->index < 0 || chosen->index >= static_cast<int>(captions_.size())) {
    return Changed(Changes::kSelection);
  }
  selected_ = chosen->index;
  Raise(u"Click", on_click);
}

}  // namespace quill::ui

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
  Choose(chosen->index);
}

void TabStrip::Turn(bool forward) {
  const auto count = static_cast<int>(captions_.size());
  if (count > 0) Choose((selected_ + (forward ? 1 : count - 1)) % count);
}

// The peer is told twice, so that it can show the pages' change as one.
void TabStrip::Choose(int index) {
  selected_ = index;
  Changed(Changes::kSelection | Changes::kTurnBegins);
  try {
    Raise(u"Click", on_click);
  } catch (...) {
    Changed(Changes::kTurnEnds);
    throw;
  }
  Changed(Changes::kTurnEnds);
}

}  // namespace quill::ui

// A tab strip: the choice among its captions.
#include "ui/tab_strip.h"

#include <utility>

#include "support/trap.h"

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

// The peer is told twice, so that it can show the pages' change as one. When it fails, the page is
// that of the chosen tab even so.
void TabStrip::Choose(int index) {
  selected_ = index;
  RunAll([&] { Changed(Changes::kSelection | Changes::kTurnBegins); },
         [&] { Raise(u"Click", on_click); }, [&] { Changed(Changes::kTurnEnds); });
}

}  // namespace quill::ui

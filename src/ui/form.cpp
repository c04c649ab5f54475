// A form: its collection, its modal display and its end.
#include "ui/form.h"

#include <limits>

#include "support/trap.h"
#include "ui/controls.h"

namespace quill::ui {

Form::Form(Toolkit& toolkit, Text name, TextView title, Twips client_width, Twips client_height)
    : Control(*this, ControlKind::kForm, std::move(name), title), toolkit_(toolkit) {
  bounds_ = {0, 0, client_width, client_height};
}

Form::~Form() {
  // While the controls are still there: peers refer to them.
  DestroyPeers();
}

Control* Form::Find(TextView name) const noexcept {
  for (const auto& control : controls_) {
    if (EqualIgnoringCase(control->name(), name)) return control.get();
  }
  return nullptr;
}

Control& Form::At(TextView name) const {
  Control* const found = Find(name);
  if (found != nullptr) return *found;
  throw RuntimeError(ErrorNumber::kControlNotFound, Concat({u"Control '", name, u"' not found"}));
}

void Form::Adopt(std::unique_ptr<Control> control, Control& container) {
  if (Find(control->name()) != nullptr) {
    throw RuntimeError(ErrorNumber::kInvalidProcedureCall,
                       Concat({u"There is a control '", control->name(), u"' already"}));
  }
  if (&container.form() != this) throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
  if (peer() == nullptr) MakePeer();

  Control& added = *control;
  // First what may fail, so that a control is never in one of the two lists alone.
  container.children_.reserve(container.children_.size() + 1);
  controls_.push_back(std::move(control));
  container.children_.push_back(&added);
  added.container_ = &container;
  try {
    added.MakePeer();
  } catch (...) {
    container.children_.pop_back();
    controls_.pop_back();
    throw;
  }
}

Control* Form::FindAccessKey(char16_t key) const noexcept {
  const char16_t wanted = ToUpper(key);
  for (const auto& control : controls_) {
    if (wanted != 0 && control->access_key == wanted && control->IsReachable()) {
      return control.get();
    }
  }
  return nullptr;
}

bool Form::PressAccessKey(const AccessKeyStruck& key) {
  Control* const control = FindAccessKey(key.letter);
  if (control == nullptr) return false;
  if (control->IsTabStop()) FocusOn(*control);
  // Through its own guard: a failure is reported under the name of its handler.
  control->Happened(Clicked{key.repeated});
  return true;
}

bool Form::Navigate(const Control& from, KeyStroke stroke) {
  if ((stroke.shift & kAltHeld) != 0) return false;
  const char16_t key = stroke.key;
  const bool forward = key == kTabKey ? (stroke.shift & kShiftHeld) == 0
                                      : key == kPageDownKey || key == kRightKey || key == kDownKey;
  if ((stroke.shift & kCtrlHeld) != 0 &&
      (key == kTabKey || key == kPageUpKey || key == kPageDownKey)) {
    for (const auto& control : controls_) {
      auto* const strip = dynamic_cast<TabStrip*>(control.get());
      if (strip == nullptr || !strip->IsReachable()) continue;
      strip->Turn(forward);
      break;
    }
    return true;
  }
  // The other kinds have a use for the arrows themselves.
  const bool is_arrow =
      key >= kLeftKey && key <= kDownKey &&
      (from.kind() == ControlKind::kCheckBox || from.kind() == ControlKind::kCommandButton ||
       from.kind() == ControlKind::kImage);
  if (key != kTabKey && !is_arrow) return false;
  // Arrows stay inside the frame, as in a group of a system dialog.
  MoveFocus(from.tab_index(), is_arrow ? from.container() : nullptr, forward);
  return true;
}

void Form::MoveFocus(int from_index, const Control* container, bool forward) {
  Control* next = nullptr;
  // Ways are counted in tab indexes. From -1 forward the first tab stop is the nearest.
  // Unsigned, so that the way past the end is longer than any other, and back to the start longest.
  unsigned shortest = std::numeric_limits<unsigned>::max();
  const auto start = static_cast<unsigned>(from_index);
  for (const auto& control : controls_) {
    if (!control->IsTabStop() || !control->IsReachable()) continue;
    if (container != nullptr && control->container() != container) continue;
    const auto index = static_cast<unsigned>(control->tab_index());
    const unsigned way = (forward ? index - start : start - index) - 1;
    if (next != nullptr && way >= shortest) continue;
    next = control.get();
    shortest = way;
  }
  if (next != nullptr) FocusOn(*next);
}

void Form::FocusOn(Control& target) {
  focus_ = &target;
  focus_waits_ = false;
  target.Changed(Changes::kFocus | Changes::kReachedByKey);
}

void Form::FocusArrived(Control& control) {
  if (control.IsTabStop()) {
    focus_ = &control;
    focus_waits_ = false;
  } else if (&control == this && !focus_waits_) {
    // The window was activated: the focus goes back to the control that had it.
    if (focus_ == nullptr || !focus_->IsReachable()) return MoveFocus(-1, nullptr, true);
    focus_->Changed(Changes::kFocus);
  }
}

void Form::ReachChanged(const Control& control) {
  const Control* inner = focus_;
  while (inner != nullptr && inner != &control) inner = inner->container();
  if (inner == nullptr || !shown_) return;
  if (focus_->IsReachable()) {
    // The list that was hidden while it was filled is back.
    if (std::exchange(focus_waits_, false)) focus_->Changed(Changes::kFocus);
  } else if (inner == focus_ && !inner->visible()) {
    focus_waits_ = true;
    Changed(Changes::kFocus);
  } else {
    // On from the control itself; from a container that went, the first tab stop of all.
    MoveFocus(inner == focus_ ? inner->tab_index() : -1, nullptr, true);
  }
}

void Form::ShowModal() {
  if (unloaded_) throw RuntimeError(ErrorNumber::kObjectNotSet);
  if (shown_) throw RuntimeError(ErrorNumber::kFormAlreadyShown);
  const KeepAlive alive(weak_from_this().lock());
  if (peer() == nullptr) MakePeer();

  shown_ = true;
  try {
    SetVisible(true);
    // Showing it may have told somebody who has closed it.
    if (shown_) toolkit_.RunModal(*this);
  } catch (...) {
    DisplayEnded();
    throw;
  }
  DisplayEnded();
}

void Form::DisplayEnded() noexcept {
  if (!shown_) return;
  shown_ = false;
  try {
    Changed(Changes::kVisible);
  } catch (...) {
    // The display is over either way.
  }
}

void Form::Hide() {
  if (!shown_) return;
  shown_ = false;
  // First the other windows take input again: when this one goes, the system activates one that
  // does.
  toolkit_.EndModal(*this);
  Changed(Changes::kVisible);
}

void Form::Unload() {
  if (unloading_) return;
  // Before the handler, which may ask for it again.
  unloading_ = true;
  const KeepAlive alive(weak_from_this().lock());

  RunAll([&] { Raise(u"Unload", on_unload); },
         [&] {
           unloaded_ = true;
           Hide();
         },
         [&] {
           const auto told = on_unloaded;
           if (told) told();
         });
}

void Form::React(const Fact& fact) {
  if (std::holds_alternative<CloseAsked>(fact)) Unload();
}

KeepAlive::~KeepAlive() {
  if (form_ == nullptr || form_.use_count() > 1) return;
  try {
    // This was the last holder, and a window of the form may be handling the event that led here.
    // The task destroys the form later by letting go of it.
    form_->toolkit().Defer([form = form_] { static_cast<void>(form); });
  } catch (...) {
    // Without memory for the task the form goes now.
  }
}

}  // namespace quill::ui

// A form: its collection, its modal display and its end.
#include "ui/form.h"

namespace quill::ui {

Form::Form(Toolkit& toolkit, Text name, TextView caption, Twips client_width, Twips client_height)
    : Control(*this, ControlKind::kForm, std::move(name)), toolkit_(toolkit), caption_(caption) {
  bounds_ = {0, 0, client_width, client_height};
  visible_ = false;
}

Form::~Form() {
  DestroyPeers();
  while (!controls_.empty()) controls_.pop_back();
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
  container.children_.reserve(container.children_.size() + 1);
  controls_.push_back(std::move(control));
  container.children_.push_back(&added);
  added.container_ = &container;
  try {
    added.MakePeer();
  } catch (...) {
    added.Leave(container);
    controls_.pop_back();
    throw;
  }
}

void Form::SetPointer(Pointer pointer) {
  pointer_ = pointer;
  Changed(Changes::kPointer);
}

Control* Form::FindAccessKey(char16_t key) const noexcept {
  const char16_t wanted = ToUpper(key);
  for (const auto& control : controls_) {
    if (wanted != 0 && control->access_key() == wanted && control->IsReachable()) {
      return control.get();
    }
  }
  return nullptr;
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
  visible_ = false;
  try {
    Changed(Changes::kVisible);
  } catch (...) {
    // The display is over either way.
  }
}

void Form::Hide() {
  if (!shown_) return;
  shown_ = false;
  visible_ = false;
  toolkit_.EndModal(*this);
  Changed(Changes::kVisible);
}

void Form::Unload() {
  if (unloading_) return;
  unloading_ = true;
  const KeepAlive alive(weak_from_this().lock());

  std::exception_ptr first_failure;
  const auto run = [&](const auto& step) {
    try {
      step();
    } catch (...) {
      if (first_failure == nullptr) first_failure = std::current_exception();
    }
  };
  run([&] { Raise(u"Unload", on_unload); });
  unloaded_ = true;
  run([&] { Hide(); });
  run([&] {
    const auto told = on_unloaded;
    if (told) told();
  });
  if (first_failure != nullptr) std::rethrow_exception(first_failure);
}

void Form::React(const Fact& fact) {
  if (std::holds_alternative<CloseAsked>(fact)) Unload();
}

KeepAlive::~KeepAlive() {
  if (form_ == nullptr || form_.use_count() > 1) return;
  try {
    form_->toolkit().Defer([form = form_] { static_cast<void>(form); });
  } catch (...) {
    // Without memory for the task the form goes now.
  }
}

}  // namespace quill::ui

// A form: the collection of its controls, its modal display and its lifetime.
//
// A form is held by shared_ptr. A handler may unload the form it belongs to: the form stays in
// memory until no event of it is being handled, and is then destroyed through Toolkit::Defer.
#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/runtime_error.h"
#include "ui/control.h"

namespace quill::ui {

class Form : public Control, public std::enable_shared_from_this<Form> {
 public:
  Form(Toolkit& toolkit, Text name, TextView title, Twips client_width, Twips client_height);
  ~Form() override;

  [[nodiscard]] Toolkit& toolkit() const noexcept { return toolkit_; }

  // The collection, in the order in which the controls were added.
  [[nodiscard]] const std::vector<std::unique_ptr<Control>>& controls() const noexcept {
    return controls_;
  }
  // The control of that name, without regard to letter case; null when there is none.
  [[nodiscard]] Control* Find(TextView name) const noexcept;
  // The same; fails with kControlNotFound when there is none.
  [[nodiscard]] Control& At(TextView name) const;
  // The same; fails with kTypeMismatch when it is of another kind.
  template <class T>
  [[nodiscard]] T& Get(TextView name) const {
    auto* control = dynamic_cast<T*>(&At(name));
    if (control == nullptr) throw RuntimeError(ErrorNumber::kTypeMismatch);
    return *control;
  }

  // Adds a control of class T to the collection, at the front of `container` (the form when null).
  // T's constructor takes the form, the name and `args`. Its peer is made at once when the form has
  // its own, else with the form's. The collection refuses a name that it holds already
  // (kInvalidProcedureCall). The form's own peer is made with the first control. When a peer cannot
  // be made, the collection does not keep the control and the failure is passed on. Controls are
  // added, moved and brought to the front before the form is first shown.
  template <class T, class... Args>
  T& Add(Text name, Control* container, Args&&... args) {
    auto control = std::make_unique<T>(*this, std::move(name), std::forward<Args>(args)...);
    T& added = *control;
    Adopt(std::move(control), container != nullptr ? *container : *this);
    return added;
  }

  Property<Pointer, Changes::kPointer> pointer{*this};

  // The first control of the collection with that access key (in either letter case) that the
  // operator can reach; null when there is none.
  [[nodiscard]] Control* FindAccessKey(char16_t key) const noexcept;

  // The control that has the keyboard focus while the form's window is active; null at first. It
  // keeps the focus while it alone is hidden, as a list that is being filled; otherwise one that
  // can no longer be reached passes it on.
  [[nodiscard]] Control* focus() const noexcept { return focus_; }

  // Shows the form modally and returns when it has been hidden or unloaded. Fails with
  // kFormAlreadyShown while it is shown, and with kObjectNotSet once it is unloaded.
  void ShowModal();
  // Ends a modal display; keeps everything else. Does nothing when it is not shown.
  void Hide();
  // Runs on_unload once, then hides the form for good and runs on_unloaded. Further calls, also
  // from on_unload itself, do nothing. The first failure on the way is passed on at the end.
  void Unload();
  [[nodiscard]] bool shown() const noexcept { return shown_; }
  [[nodiscard]] bool visible() const noexcept override { return shown_; }
  [[nodiscard]] bool unloaded() const noexcept { return unloaded_; }

  std::function<void()> on_unload;
  // Told once the form is unloaded: whoever holds it lets go.
  std::function<void()> on_unloaded;
  // Told of a failure that left a handler. `handler` is its name, for example "cmdLeft_MouseUp".
  std::function<void(const RuntimeError& error, TextView handler)> on_unhandled;

 protected:
  void React(const Fact& fact) override;

 private:
  friend class Control;
  void Adopt(std::unique_ptr<Control> control, Control& container);
  // Tab, the arrow keys among buttons, and the keys that turn the tab strip.
  bool Navigate(const Control& from, KeyStroke stroke);
  // To the next tab stop in the tab order after (or before) that index, round the end; inside
  // `container` unless that is null.
  void MoveFocus(int from_index, const Control* container, bool forward);
  void FocusOn(Control& target);
  void FocusArrived(Control& control);
  // Of a control, or of all that lie in it: it was enabled, disabled, shown or hidden.
  void ReachChanged(const Control& control);
  // Goes to the control of that access key and clicks it; false when there is none.
  bool PressAccessKey(const AccessKeyStruck& key);
  // For a display that ended without Hide.
  void DisplayEnded() noexcept;

  Toolkit& toolkit_;
  std::vector<std::unique_ptr<Control>> controls_;
  Control* focus_ = nullptr;
  bool focus_waits_ = false;  // until its control is shown again
  bool shown_ = false;
  bool unloading_ = false;
  bool unloaded_ = false;

  // The failure that left a handler last, and that handler.
  std::exception_ptr failure_;
  const Control* failed_control_ = nullptr;
  const char16_t* failed_event_ = nullptr;
};

// Holds a form while its code runs; the last holder hands it to Toolkit::Defer for destruction.
// Null is allowed and holds nothing.
class KeepAlive {
 public:
  explicit KeepAlive(std::shared_ptr<Form> form) noexcept : form_(std::move(form)) {}
  ~KeepAlive();
  KeepAlive(const KeepAlive&) = delete;
  KeepAlive& operator=(const KeepAlive&) = delete;

 private:
  std::shared_ptr<Form> form_;
};

}  // namespace quill::ui

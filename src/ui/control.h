// A control of the dialog: its state and its rules, with no window of its own. A native peer shows
// the state and reports what happened; everything else is decided here and in the derived classes.
//
// Every change is made in the model first and told to the peer after that. A peer that fails passes
// its failure on to whoever made the change; the model keeps the new state, and handlers that the
// change would have run do not run, but for a tab's, which shows the page. Assigning again tells
// the peer again.
//
// A control is owned by its form's collection. Everything runs on the user-interface thread.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/text.h"
#include "ui/changes.h"
#include "ui/fact.h"
#include "ui/geometry.h"
#include "ui/toolkit.h"

namespace quill::ui {

// What can be done with a control from its context menu and by keys. The texts are not copied: they
// outlive the control.
struct MenuItem {
  TextView caption;
  TextView key_name;  // as the menu shows it
  KeyStroke stroke;   // which chooses the item without the menu; whether it is usable or not
  bool begins_group = false;
  std::function<bool()> is_usable;  // otherwise the menu shows it grey
  std::function<void()> choose;
};

enum class ControlKind : std::uint8_t {
  kForm,
  kTabStrip,
  kFrame,
  kLabel,
  kTextBox,
  kCheckBox,
  kListBox,
  kComboBox,
  kCommandButton,
  kImage,
  kPictureBox,
  kFileDialog,
};
// As "TextBox"; a file dialog's is "CommonDialog".
[[nodiscard]] TextView KindName(ControlKind kind) noexcept;

class Control {
 public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  [[nodiscard]] ControlKind kind() const noexcept { return kind_; }
  [[nodiscard]] const Text& name() const noexcept { return name_; }
  [[nodiscard]] Form& form() const noexcept { return form_; }

  // A property that the peer is told of with every assignment. It is read by calling it.
  template <class T, Changes::Bit side>
  class Property {
   public:
    explicit Property(Control& owner, T value = {}) : owner_(owner), value_(std::move(value)) {}
    [[nodiscard]] const T& operator()() const noexcept { return value_; }
    template <class V = T>
    void operator=(V&& value) {
      value_ = std::forward<V>(value);
      owner_.Changed(side);
    }

   private:
    Control& owner_;
    T value_;
  };

  // The control that this one lies in: a frame, or the form itself; null for the form.
  [[nodiscard]] Control* container() const noexcept { return container_; }
  // Those lying in this one, from the back of the stacking order to the front.
  [[nodiscard]] const std::vector<Control*>& children() const noexcept { return children_; }
  void BringToFront();

  [[nodiscard]] const Bounds& bounds() const noexcept { return bounds_; }
  void SetBounds(const Bounds& bounds);
  void SetPlace(Twips left, Twips top);

  [[nodiscard]] bool enabled() const noexcept { return enabled_; }
  void SetEnabled(bool enabled);
  // The control's own flag; a visible control in a hidden frame does not show.
  [[nodiscard]] virtual bool visible() const noexcept { return visible_; }
  void SetVisible(bool visible);
  Property<Text, Changes::kTooltip> tooltip{*this};
  // What it shows as its text, other than by rows or for the operator to edit; empty for some.
  Property<Text, Changes::kText> caption{*this};

  // Place in the tab order among the form's controls, from 0; -1: not a tab stop.
  [[nodiscard]] int tab_index() const noexcept { return tab_index_; }
  void SetTabIndex(int index);
  // True when it has a place in the tab order and is of a kind that takes the keyboard.
  [[nodiscard]] bool IsTabStop() const noexcept;
  // The letter that, together with Alt, reaches the control and clicks it; 0: none. In upper case.
  char16_t access_key = 0;
  // What assistive tools call the control; empty: what it shows itself. Not copied: the text
  // outlives the control.
  TextView accessible_name;

  // The items of its context menu. Their keys also hold for the controls that lie in this one.
  std::vector<MenuItem> menu;
  // The item that the keys choose here; null: none.
  [[nodiscard]] const MenuItem* FindStroke(KeyStroke stroke) const noexcept;

  // True when the operator can reach it: it, its containers and its form are visible and enabled,
  // and the form is shown.
  [[nodiscard]] bool IsReachable() const noexcept;

  [[nodiscard]] Peer* peer() const noexcept { return peer_.get(); }

  // The one entry for native events. A release of a mouse button that was down when a box closed
  // belongs to that box and is dropped. Ignored while the control cannot be reached or its form is
  // unloaded; the peer is then told the side that the event was about, so that a native control
  // that has changed itself is put right. Runs the control's rule and its handlers; a failure that
  // no handler trapped goes to the form's report of unhandled failures, labelled with the name of
  // the innermost handler that failed. A failure of that report goes no further. False for a key
  // that means nothing here: the native control may have a use for it.
  bool Happened(const Fact& fact) noexcept;

  // Run by the kinds of controls that the operator can click or press.
  std::function<void()> on_click;
  std::function<void(const MouseEvent&)> on_mouse_down;
  std::function<void(const MouseEvent&)> on_mouse_up;
  std::function<void()> on_mouse_lost;  // in place of the mouse-up

 protected:
  Control(Form& form, ControlKind kind, Text name, TextView title = {});

  // What follows from a fact: here, of those of the mouse. Facts that are not for this kind of
  // control are ignored.
  virtual void React(const Fact& fact);
  // What a key does here that no menu has; false for one that does nothing.
  virtual bool ReactToKey(const KeyStruck& key);
  // Shows the menu at that place of the control and does what is chosen.
  void OpenMenu(Twips x, Twips y);
  // Tells the peer, at once; does nothing before the peer exists.
  void Changed(Changes changes);
  // The peer is about to be told that the control is shown.
  virtual void BeforeShown() {}
  // Runs `handler` when there is one; a failure in it that passes through Happened is labelled with
  // the control's name, "_" and `event`.
  template <class... Args>
  void Raise(const char16_t* event, const std::function<void(Args...)>& handler,
             const std::type_identity_t<Args>&... args) {
    if (!handler) return;
    const auto running = handler;  // the handler may replace itself
    try {
      running(args...);
    } catch (...) {
      NoteFailure(event);
      throw;
    }
  }

 private:
  friend class Form;
  // In this order: the menu's item, the control's own use, the form's.
  bool TakeKey(const KeyStruck& key);
  // Remembers the handler that the exception being handled left first.
  void NoteFailure(const char16_t* event) noexcept;
  void ReportUnhandled(const Fact& fact) noexcept;
  // Needs no memory, because being out of it may be what is reported. A longer name is cut.
  using HandlerNameBuffer = std::array<char16_t, 80>;
  [[nodiscard]] TextView HandlerName(TextView event, HandlerNameBuffer& buffer) const noexcept;
  void MakePeer();
  void DestroyPeers() noexcept;

  Form& form_;
  ControlKind kind_;
  Text name_;
  Control* container_ = nullptr;
  std::vector<Control*> children_;
  Bounds bounds_;
  bool enabled_ = true;
  bool visible_ = true;
  int tab_index_ = -1;
  std::unique_ptr<Peer> peer_;
};

}  // namespace quill::ui

// The hosting options as one table. A row holds all that is known of an option: building the
// dialog, settings files, the game-settings reply and the start payload take what they need from
// it.
#pragma once

#include <cstdint>
#include <span>

#include "support/text.h"
#include "ui/control.h"
#include "ui/controls.h"

namespace quill {

// Where the labels and the controls of a column lie inside its frame.
struct OptionColumn {
  TextView frame;  // name of the frame control
  ui::Twips label_left = 0;
  ui::Twips label_width = 0;
  ui::Twips control_left = 0;
};

struct OptionPlace {
  OptionColumn column;
  int row = 0;           // from the top of the frame, 0-based
  ui::Twips width = 0;   // of the control; a check box has the one of its kind
  ui::Twips indent = 0;  // of label and control
};

// The decimal texts of `first` to `last`, added when the dialog loads; none when first > last.
struct NumberRange {
  int first = 0;
  int last = -1;

  friend bool operator==(const NumberRange&, const NumberRange&) = default;
};

// How an option stands in a field of the start payload or of the game-settings reply.
enum class FieldForm : std::uint8_t {
  kNone,           // in no field of its own
  kBase64,         // of the text as it stands
  kBase64OrEmpty,  // an empty field: a text that is empty or of blanks only; read, it stays as it
                   // is
  kNumber,         // state of the check box, position of the chosen item, -1 for none
  kNumberPlusOne,
  kLoopState,  // as kNumber, but 2 is read as 1
  kPlainText,
  kBase64List,  // of the items, which are appended, and of which one is chosen
};

struct OptionField {
  int number = -1;  // 0-based; -1: none
  FieldForm form = FieldForm::kNone;
};

// What an option that the operator may not change gets from a reply.
struct FixedValue {
  int field = -1;        // of the reply; -1: none, the option then gets its own field's value
  int without = 0;       // what a reply without fixed values means, as the field would say it
  TextView repair = {};  // in the place of a field that is no number; empty: it stays
};

// A check box's share in the payload's option flags: `bit` is added when the box has `added_at`.
struct OptionFlag {
  std::uint32_t bit = 0;  // 0: none
  int added_at = 0;
};

struct Option {
  TextView key;  // the control's name
  // kTextBox (its value: text), kCheckBox (state 0 or 1), kListBox (position of the chosen item, -1
  // for none) or kComboBox (text of the chosen item).
  ui::ControlKind kind = ui::ControlKind::kTextBox;
  TextView label;
  OptionPlace place;

  TextView note = {};     // shown to the right of the control; empty: none
  TextView tooltip = {};  // empty: none

  std::span<const TextView> items = {};  // fixed items of a list
  NumberRange numbers = {};              // number list

  int max_length = 0;  // characters that a text box accepts
  ui::Alignment alignment = ui::Alignment::kLeft;

  TextView initial_text = {};  // of a text box
  int initial_state = 0;       // of a check box

  // What an empty text becomes, in the dialog too, when the settings are saved; empty: it stays.
  TextView blank_replacement = {};

  OptionField payload = {};
  OptionField reply = {};
  FixedValue fixed = {};
  OptionFlag flag = {};
};

// In the order in which settings files are written and a reply is applied; within a column from top
// to bottom.
[[nodiscard]] std::span<const Option> Options() noexcept;

}  // namespace quill

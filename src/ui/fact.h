// What a native control tells its model: facts, in the past tense. The model decides what follows.
#pragma once

#include <cstdint>
#include <variant>
#include <vector>

#include "support/text.h"
#include "ui/geometry.h"

namespace quill::ui {

// Mouse buttons as the mouse handlers number them.
inline constexpr std::int16_t kLeftButton = 1;
inline constexpr std::int16_t kRightButton = 2;
inline constexpr std::int16_t kMiddleButton = 4;
inline constexpr std::int16_t kFourthButton = 8;
inline constexpr std::int16_t kFifthButton = 16;

// What is held with a key, added up.
inline constexpr std::int16_t kShiftHeld = 1;
inline constexpr std::int16_t kCtrlHeld = 2;
inline constexpr std::int16_t kAltHeld = 4;
// Keys as the platform numbers them: a letter by its capital.
inline constexpr char16_t kTabKey = 0x09;
inline constexpr char16_t kEnterKey = 0x0D;
inline constexpr char16_t kSpaceKey = 0x20;
inline constexpr char16_t kPageUpKey = 0x21;
inline constexpr char16_t kPageDownKey = 0x22;
inline constexpr char16_t kEndKey = 0x23;
inline constexpr char16_t kHomeKey = 0x24;
inline constexpr char16_t kLeftKey = 0x25;
inline constexpr char16_t kUpKey = 0x26;
inline constexpr char16_t kRightKey = 0x27;
inline constexpr char16_t kDownKey = 0x28;
inline constexpr char16_t kDeleteKey = 0x2E;

struct KeyStroke {
  char16_t key = 0;  // 0: none
  std::int16_t shift = 0;
  friend bool operator==(const KeyStroke&, const KeyStroke&) = default;
};
struct MouseEvent {
  std::int16_t button = kLeftButton;
  // Relative to the control.
  Twips x = 0;
  Twips y = 0;
};

struct TextEdited {  // the operator changed the native text; this is all of it now
  Text text;
  // What was selected before, 0-based, without the unit at `to`; equal: the insertion point.
  std::size_t from = 0;
  std::size_t to = Text::npos;  // beyond the end: to the end
};
struct Clicked {  // a check box or push button was clicked, or its key pressed; an image's key
  bool repeated = false;  // by a key that is being held
};
struct MousePressed {
  MouseEvent event;
};
struct MouseReleased {
  MouseEvent event;
};
struct MouseLost {};  // somebody else has taken the mouse: no release of what is pressed will come
struct ItemChosen {   // in a drop-down list or tab strip; 0-based
  int index = -1;
};
struct RowsSelected {  // in a list box, by mouse or keys; 0-based, ascending
  std::vector<int> rows;
  int current = -1;
};
struct RowDoubleClicked {  // -1: below the last row
  int row = -1;
};
struct ScrolledTo {  // 0-based row that is now the first visible one
  int top = 0;
};
struct KeyPressed {  // a character, in a list box
  char16_t character = 0;
  std::uint32_t time = 0;  // milliseconds since some moment; begins again after the highest
};
struct KeyStruck {  // while the control has the focus; see Control::Happened
  KeyStroke stroke;
  bool repeated = false;  // by a key that is being held
};
struct KeyReleased {
  char16_t key = 0;
};
struct AccessKeyStruck {  // a letter together with Alt, told to the form
  char16_t letter = 0;
  bool repeated = false;
};
struct FocusTaken {};  // by the control; by the form itself: its window was activated
struct FocusLost {};
struct MenuAsked {  // the context menu of a list box, at a place relative to it
  Twips x = 0;
  Twips y = 0;
  int row = -1;  // under the mouse; -1: none, or asked for by a key
};
struct CloseAsked {};  // the form's own close button, Alt+F4

using Fact =
    std::variant<TextEdited, Clicked, MousePressed, MouseReleased, MouseLost, ItemChosen,
                 RowsSelected, RowDoubleClicked, ScrolledTo, KeyPressed, KeyStruck, KeyReleased,
                 AccessKeyStruck, FocusTaken, FocusLost, MenuAsked, CloseAsked>;

}  // namespace quill::ui

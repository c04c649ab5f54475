// What can be done with a control from its context menu and by keys.
#pragma once

#include <cstdint>
#include <functional>

#include "support/text.h"

namespace quill::ui {

// `key` is numbered as the platform numbers its keys: a letter by its capital.
struct KeyStroke {
  char16_t key = 0;        // 0: none
  std::int16_t shift = 0;  // as in MouseEvent
  friend bool operator==(const KeyStroke&, const KeyStroke&) = default;
};
inline constexpr std::int16_t kShiftHeld = 1;
inline constexpr std::int16_t kCtrlHeld = 2;
inline constexpr std::int16_t kAltHeld = 4;
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

// The texts are not copied: they outlive the control.
struct MenuItem {
  TextView caption;
  TextView key_name;  // as the menu shows it
  KeyStroke stroke;   // which chooses the item without the menu; whether it is usable or not
  bool begins_group = false;
  std::function<bool()> is_usable;  // otherwise the menu shows it grey
  std::function<void()> choose;
};

}  // namespace quill::ui

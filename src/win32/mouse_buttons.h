// The presses and releases of a label's or an image's mouse buttons, as facts.
#pragma once

#include <windows.h>

#include <optional>

#include "ui/fact.h"
#include "win32/screen_scale.h"

namespace quill::win32 {

// Once a button is pressed on the window it gets that button's release wherever that is; a release
// of a press elsewhere (the second click that closed a file dialog on top) is none of its own.
class MouseButtons {
 public:
  // The fact that a message of `window` stands for, if it does for one. To be asked before any
  // other handling.
  [[nodiscard]] std::optional<ui::Fact> FactOf(HWND window, UINT message, WPARAM wparam,
                                               LPARAM lparam, const ScreenScale& scale);

 private:
  std::int16_t pressed_ = 0;  // the buttons' numbers added up
};

}  // namespace quill::win32

// The presses and releases of mouse buttons on a window, as facts.
#pragma once

#include <windows.h>

#include <optional>

#include "ui/fact.h"
#include "win32/screen_scale.h"

namespace quill::win32 {

// The buttons that are down, by the messages that this thread has taken; their numbers added up.
[[nodiscard]] std::int16_t ButtonsDown() noexcept;

class MouseButtons {
 public:
  // The fact that a message of `window` stands for, if it does for one. To be asked before any
  // other handling. A window that captures gets the release of a button that was pressed on it
  // wherever that is.
  [[nodiscard]] std::optional<ui::Fact> FactOf(HWND window, UINT message, WPARAM wparam,
                                               LPARAM lparam, const ScreenScale& scale,
                                               bool captures);

 private:
  std::int16_t pressed_ = 0;  // while captured; the buttons' numbers added up
};

}  // namespace quill::win32

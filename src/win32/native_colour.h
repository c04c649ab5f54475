// Colours of controls as the system's own.
#pragma once

#include <windows.h>

#include "ui/picture_box.h"

namespace quill::win32 {

[[nodiscard]] inline COLORREF ToColorRef(ui::Colour colour) noexcept {
  constexpr ui::Colour kSystemColour = 0x80000000u;
  return (colour & kSystemColour) != 0 ? GetSysColor(static_cast<int>(colour & 0xFFu))
                                       : colour & 0x00FFFFFFu;
}

}  // namespace quill::win32

// Colours of controls as the system's own.
#pragma once

#include <windows.h>

#include "ui/controls.h"

namespace quill::win32 {

[[nodiscard]] inline COLORREF ToColorRef(ui::Colour colour) noexcept {
  constexpr ui::Colour kSystemColour = 0x80000000u;
  return (colour & kSystemColour) != 0 ? GetSysColor(static_cast<int>(colour & 0xFFu))
                                       : colour & 0x00FFFFFFu;
}

// True when the operator has asked the system for colours of high contrast; nothing is then drawn
// in a colour of one's own.
[[nodiscard]] inline bool IsHighContrast() noexcept {
  HIGHCONTRASTW contrast = {};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace quill::win32

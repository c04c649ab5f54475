// How wide texts are in a font.
#pragma once

#include <windows.h>

#include <array>

#include "support/text.h"

namespace quill::win32 {

// In pixels, from a table of the first characters' widths: asking the system for each of many
// thousand rows would take longer than filling the list.
class TextWidths {
 public:
  TextWidths(HWND window, HFONT font) {
    const HDC context = GetDC(window);
    const HGDIOBJ previous = SelectObject(context, font);
    GetCharWidth32W(context, 0, static_cast<UINT>(widths_.size() - 1), widths_.data());
    TEXTMETRICW metrics = {};
    if (GetTextMetricsW(context, &metrics)) widest_ = metrics.tmMaxCharWidth;
    SelectObject(context, previous);
    ReleaseDC(window, context);
  }
  [[nodiscard]] int Of(TextView text) const {
    int width = 0;
    for (const char16_t unit : text) width += unit < widths_.size() ? widths_[unit] : widest_;
    return width;
  }

 private:
  std::array<INT, 256> widths_{};
  int widest_ = 0;
};

}  // namespace quill::win32

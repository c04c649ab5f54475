// The dialog's fonts, and how large texts are in them.
#pragma once

#include <windows.h>

#include <array>

#include "support/text.h"
#include "win32/owned.h"
#include "win32/screen_scale.h"

namespace quill::win32 {

inline constexpr int kDialogFontPoints = 8;

// The dialog's font in that size. Null when the system has no more.
[[nodiscard]] inline Owned<HFONT> MakeDialogFont(const ScreenScale& scale, int points) noexcept {
  return Owned<HFONT>(CreateFontW(scale.FontHeight(points), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                                  DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                  DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE, L"MS Shell Dlg"));
}

// The device context of a window (null: of the screen), with that font in it.
class FontContext {
 public:
  FontContext(HWND window, HFONT font) noexcept
      : window_(window), context_(GetDC(window)), former_(SelectObject(context_, font)) {}
  ~FontContext() {
    SelectObject(context_, former_);
    ReleaseDC(window_, context_);
  }
  FontContext(const FontContext&) = delete;
  FontContext& operator=(const FontContext&) = delete;

  [[nodiscard]] HDC get() const noexcept { return context_; }
  // All zero when the system does not tell.
  [[nodiscard]] TEXTMETRICW Metrics() const noexcept {
    TEXTMETRICW metrics = {};
    return GetTextMetricsW(context_, &metrics) ? metrics : TEXTMETRICW{};
  }

 private:
  HWND window_;
  HDC context_;
  HGDIOBJ former_;
};

// Widths of texts in pixels, from a table of the first characters' widths: asking the system for
// each of many thousand rows would take longer than filling the list.
class TextWidths {
 public:
  TextWidths(HWND window, HFONT font) {
    const FontContext context(window, font);
    GetCharWidth32W(context.get(), 0, static_cast<UINT>(widths_.size() - 1), widths_.data());
    widest_ = context.Metrics().tmMaxCharWidth;
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

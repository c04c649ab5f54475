// What drawing takes: device contexts and their owners, the dialog's font, colours, and a repaint
// that is seen all at once.
#pragma once

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdint>

#include "ui/controls.h"
#include "win32/owned.h"
#include "win32/screen_scale.h"

namespace quill::win32 {

// The dialog's font. Null when the system has no more.
[[nodiscard]] Owned<HFONT> MakeDialogFont(const ScreenScale& scale) noexcept;

[[nodiscard]] COLORREF ToColorRef(ui::Colour colour) noexcept;

// True when the operator has asked the system for colours of high contrast; nothing is then drawn
// in a colour of one's own.
[[nodiscard]] bool IsHighContrast() noexcept;

// The device context of a window (null: of the screen), with a font in it unless that is null.
class WindowContext {
 public:
  explicit WindowContext(HWND window, HFONT font = nullptr) noexcept
      : window_(window), context_(GetDC(window)), former_(SelectObject(context_, font)) {}
  ~WindowContext() {
    SelectObject(context_, former_);
    ReleaseDC(window_, context_);
  }
  WindowContext(const WindowContext&) = delete;
  WindowContext& operator=(const WindowContext&) = delete;

  [[nodiscard]] HDC get() const noexcept { return context_; }
  // Of its font. All zero when the system does not tell.
  [[nodiscard]] TEXTMETRICW Metrics() const noexcept {
    TEXTMETRICW metrics = {};
    return GetTextMetricsW(context_, &metrics) ? metrics : TEXTMETRICW{};
  }

 private:
  HWND window_;
  HDC context_;
  HGDIOBJ former_;
};

// The width in pixels of the widest of a list's rows from `first` on, in the font of its window.
// From a table of the first characters' widths: asking the system for each of many thousand rows
// would take longer than filling the list.
template <class List>
[[nodiscard]] int WidestRow(HWND window, const List& list, int first) {
  const WindowContext context(window,
                              reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)));
  std::array<INT, 256> widths{};
  GetCharWidth32W(context.get(), 0, static_cast<UINT>(widths.size() - 1), widths.data());
  const int widest_unit = context.Metrics().tmMaxCharWidth;
  int widest = 0;
  for (int row = first; row < list.Count(); ++row) {
    int width = 0;
    for (const char16_t unit : list.Item(row)) {
      width += unit < widths.size() ? widths[unit] : widest_unit;
    }
    widest = std::max(widest, width);
  }
  return widest;
}

// A memory device context with a bitmap of its own: an off-screen drawing area.
class DrawingSurface {
 public:
  explicit DrawingSurface(SIZE size) noexcept;
  // A bitmap that a device context holds cannot be deleted.
  ~DrawingSurface() { SelectObject(context(), previous_); }
  DrawingSurface(const DrawingSurface&) = delete;
  DrawingSurface& operator=(const DrawingSurface&) = delete;

  [[nodiscard]] HDC context() const noexcept { return context_.get(); }
  // 32 bits each, row by row from the top. Null: the system has nothing left, and drawing is
  // without effect.
  [[nodiscard]] const std::uint32_t* pixels() const noexcept {
    return static_cast<const std::uint32_t*>(pixels_);
  }

 private:
  void* pixels_ = nullptr;
  Owned<HDC> context_;
  Owned<HBITMAP> bitmap_;
  HGDIOBJ previous_;
};

// The answer to WM_PAINT: has `draw` draw the whole client area off the screen, so that no step of
// the drawing is seen, and shows what is to be drawn anew. It ends however the drawing ends.
template <class Draw>
void PaintAtOnce(HWND window, const Draw& draw) {
  RECT area = {};
  GetClientRect(window, &area);
  PAINTSTRUCT paint = {};
  BeginPaint(window, &paint);
  const AtEnd end([&] { EndPaint(window, &paint); });
  const DrawingSurface surface({area.right, area.bottom});
  draw(surface.context(), area);
  const RECT& update = paint.rcPaint;
  BitBlt(paint.hdc, update.left, update.top, update.right - update.left, update.bottom - update.top,
         surface.context(), update.left, update.top, SRCCOPY);
}

}  // namespace quill::win32

// A repaint, and an off-screen drawing area that lives for one.
#pragma once

#include <windows.h>

#include <cstdint>

#include "win32/owned.h"

namespace quill::win32 {

// A memory device context with a bitmap of its own. Without `pixels` the bitmap matches the screen;
// with it, it has 32 bits a pixel, row by row from the top, at the address stored there. When the
// system has nothing left, drawing is without effect.
class DrawingSurface {
 public:
  explicit DrawingSurface(SIZE size, std::uint32_t** pixels = nullptr) noexcept;
  ~DrawingSurface();
  DrawingSurface(const DrawingSurface&) = delete;
  DrawingSurface& operator=(const DrawingSurface&) = delete;

  [[nodiscard]] HDC context() const noexcept { return context_.get(); }
  [[nodiscard]] bool valid() const noexcept { return bitmap_ != nullptr; }

 private:
  Owned<HDC> context_;
  Owned<HBITMAP> bitmap_;
  HGDIOBJ previous_ = nullptr;
};

// The answer to WM_PAINT: has `draw` draw the whole client area off the screen, so that no step of
// the drawing is seen, and shows what is to be drawn anew. It ends however the drawing ends.
template <class Draw>
void PaintAtOnce(HWND window, const Draw& draw) {
  struct Paint {
    explicit Paint(HWND painted) noexcept : window(painted) { BeginPaint(window, &state); }
    ~Paint() { EndPaint(window, &state); }
    Paint(const Paint&) = delete;
    Paint& operator=(const Paint&) = delete;
    HWND window;
    PAINTSTRUCT state = {};
  };
  RECT area = {};
  GetClientRect(window, &area);
  const Paint paint(window);
  const DrawingSurface surface({area.right, area.bottom});
  draw(surface.context(), area);
  const RECT& update = paint.state.rcPaint;
  BitBlt(paint.state.hdc, update.left, update.top, update.right - update.left,
         update.bottom - update.top, surface.context(), update.left, update.top, SRCCOPY);
}

}  // namespace quill::win32

// A repaint, and an off-screen drawing area that lives for one.
#pragma once

#include <windows.h>

#include <cstdint>

namespace quill::win32 {

// The answer to WM_PAINT: it ends however the drawing ends.
class WindowPaint {
 public:
  explicit WindowPaint(HWND window) noexcept : window_(window) { BeginPaint(window, &paint_); }
  ~WindowPaint() { EndPaint(window_, &paint_); }
  WindowPaint(const WindowPaint&) = delete;
  WindowPaint& operator=(const WindowPaint&) = delete;

  [[nodiscard]] HDC context() const noexcept { return paint_.hdc; }
  // What has to be drawn anew.
  [[nodiscard]] const RECT& update() const noexcept { return paint_.rcPaint; }

 private:
  HWND window_;
  PAINTSTRUCT paint_ = {};
};

// A memory device context with a bitmap of its own. Without `pixels` the bitmap matches the screen;
// with it, it has 32 bits a pixel, row by row from the top, at the address stored there.
class DrawingSurface {
 public:
  DrawingSurface(HDC like, SIZE size, std::uint32_t** pixels = nullptr) noexcept;
  ~DrawingSurface();
  DrawingSurface(const DrawingSurface&) = delete;
  DrawingSurface& operator=(const DrawingSurface&) = delete;

  [[nodiscard]] HDC context() const noexcept { return context_; }
  // False when the system had nothing left; drawing is then without effect.
  [[nodiscard]] bool valid() const noexcept { return bitmap_ != nullptr; }

 private:
  HDC context_;
  HBITMAP bitmap_;
  HGDIOBJ previous_ = nullptr;
};

}  // namespace quill::win32

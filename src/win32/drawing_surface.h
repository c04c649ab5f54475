// An off-screen drawing area that lives for one repaint.
#pragma once

#include <windows.h>

#include <cstdint>

namespace quill::win32 {

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

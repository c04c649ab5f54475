// Bitmaps for drawing off the screen.
#include "win32/drawing_surface.h"

#include <algorithm>

namespace quill::win32 {
namespace {

HBITMAP MakeBitmap(int width, int height, std::uint32_t** pixels) noexcept {
  const HDC screen = GetDC(nullptr);
  HBITMAP bitmap = nullptr;
  if (pixels == nullptr) {
    bitmap = CreateCompatibleBitmap(screen, width, height);
  } else {
    BITMAPINFO info = {};
    // A negative height: from the top.
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    *pixels = static_cast<std::uint32_t*>(bits);
  }
  ReleaseDC(nullptr, screen);
  return bitmap;
}

}  // namespace

DrawingSurface::DrawingSurface(SIZE size, std::uint32_t** pixels) noexcept
    : context_(CreateCompatibleDC(nullptr)),
      bitmap_(MakeBitmap(std::max<int>(size.cx, 1), std::max<int>(size.cy, 1), pixels)) {
  if (bitmap_ != nullptr) previous_ = SelectObject(context(), bitmap_.get());
}

// A bitmap that a device context holds cannot be deleted.
DrawingSurface::~DrawingSurface() {
  if (previous_ != nullptr) SelectObject(context(), previous_);
}

}  // namespace quill::win32

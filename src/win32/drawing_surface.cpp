#include "win32/drawing_surface.h"

#include <algorithm>

namespace quill::win32 {
namespace {

HBITMAP MakeBitmap(HDC like, SIZE size, std::uint32_t** pixels) noexcept {
  const int width = std::max<int>(size.cx, 1);
  const int height = std::max<int>(size.cy, 1);
  if (pixels == nullptr) return CreateCompatibleBitmap(like, width, height);

  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;  // from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(like, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  *pixels = static_cast<std::uint32_t*>(bits);
  return bitmap;
}

}  // namespace

DrawingSurface::DrawingSurface(HDC like, SIZE size, std::uint32_t** pixels) noexcept
    : context_(CreateCompatibleDC(like)), bitmap_(MakeBitmap(like, size, pixels)) {
  if (bitmap_ != nullptr) previous_ = SelectObject(context_, bitmap_);
}

DrawingSurface::~DrawingSurface() {
  if (previous_ != nullptr) SelectObject(context_, previous_);
  if (bitmap_ != nullptr) DeleteObject(bitmap_);
  DeleteDC(context_);
}

}  // namespace quill::win32

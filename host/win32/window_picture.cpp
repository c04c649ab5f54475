// Pixels from a surface that the window is copied to or draws on.
#include "host/win32/window_picture.h"

#include <windows.h>

#include <objidl.h>

#include <algorithm>
#include <stdexcept>
namespace Gdiplus {
// What its header expects as macros.
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

#include "win32/drawing.h"

namespace quill::host {
namespace {

template <class Draw>
Pixels Take(int width, int height, const Draw& draw) {
  const win32::DrawingSurface surface({width, height});
  if (surface.pixels() == nullptr) throw std::runtime_error("no memory for a picture of a window");
  draw(surface.context());
  GdiFlush();
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  Pixels pixels{width, height,
                std::vector<std::uint32_t>(surface.pixels(), surface.pixels() + count)};
  for (std::uint32_t& pixel : pixels.values) pixel &= 0x00FFFFFFu;
  return pixels;
}

}  // namespace

Pixels TakeWindow(HWND window) {
  RECT place = {};
  GetWindowRect(window, &place);
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  return Take(width, height, [&](HDC target) {
    const HDC source = GetWindowDC(window);
    BitBlt(target, 0, 0, width, height, source, 0, 0, SRCCOPY);
    ReleaseDC(window, source);
  });
}

Pixels TakeOwnDrawing(HWND window) {
  RECT inside = {};
  GetClientRect(window, &inside);
  return Take(inside.right, inside.bottom, [&](HDC target) {
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(target),
                 PRF_CLIENT | PRF_ERASEBKGND);
  });
}

void WritePng(const Pixels& pixels, const std::filesystem::path& path) {
  constexpr CLSID kPngEncoder = {
      0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
  const Gdiplus::GdiplusStartupInput input;
  ULONG_PTR token = 0;
  Gdiplus::Status status = Gdiplus::GdiplusStartup(&token, &input, nullptr);
  if (status == Gdiplus::Ok) {
    std::vector<std::uint32_t> rows = pixels.values;
    {
      Gdiplus::Bitmap image(pixels.width, pixels.height, 4 * pixels.width, PixelFormat32bppRGB,
                            reinterpret_cast<BYTE*>(rows.data()));
      status = image.Save(path.c_str(), &kPngEncoder, nullptr);
    }
    Gdiplus::GdiplusShutdown(token);
  }
  if (status != Gdiplus::Ok) throw std::runtime_error("cannot write " + path.string());
}

}  // namespace quill::host

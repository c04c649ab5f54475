// Bitmaps for drawing off the screen, and the dialog's font and colours as the system has them.
#include "win32/drawing.h"

namespace quill::win32 {
namespace {

HBITMAP MakeBitmap(SIZE size, void** pixels) noexcept {
  BITMAPINFO info = {};
  // A negative height: from the top.
  info.bmiHeader = {sizeof info.bmiHeader,
                    std::max<LONG>(size.cx, 1),
                    -std::max<LONG>(size.cy, 1),
                    1,
                    32,
                    BI_RGB,
                    0,
                    0,
                    0,
                    0,
                    0};
  return CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, pixels, nullptr, 0);
}

}  // namespace

Owned<HFONT> MakeDialogFont(const ScreenScale& scale) noexcept {
  constexpr int kPointsPerInch = 72;
  // Negative: the height of the characters, which is what points measure. The system has its own
  // dialog font stand behind the name.
  return Owned<HFONT>(CreateFontW(-MulDiv(ui::kFontPoints, scale.dots_per_inch(), kPointsPerInch),
                                  0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                  OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                  DEFAULT_PITCH | FF_DONTCARE, L"MS Shell Dlg"));
}

COLORREF ToColorRef(ui::Colour colour) noexcept {
  // With this bit the low byte is an index for GetSysColor.
  constexpr ui::Colour kSystemColour = 0x80000000u;
  return (colour & kSystemColour) != 0 ? GetSysColor(static_cast<int>(colour & 0xFFu))
                                       : colour & 0x00FFFFFFu;
}

bool IsHighContrast() noexcept {
  HIGHCONTRASTW contrast = {};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

DrawingSurface::DrawingSurface(SIZE size) noexcept
    : context_(CreateCompatibleDC(nullptr)),
      bitmap_(MakeBitmap(size, &pixels_)),
      previous_(SelectObject(context(), bitmap_.get())) {}

}  // namespace quill::win32

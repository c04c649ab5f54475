#include "win32/screen_scale.h"

namespace quill::win32 {
namespace {

constexpr int kPointsPerInch = 72;
constexpr int kUsualDotsPerInch = 96;

}  // namespace

ScreenScale::ScreenScale() noexcept : ScreenScale(kUsualDotsPerInch, kUsualDotsPerInch) {
  const HDC screen = GetDC(nullptr);
  if (screen == nullptr) return;
  const int x = GetDeviceCaps(screen, LOGPIXELSX);
  const int y = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  if (x > 0) dots_per_inch_x_ = x;
  if (y > 0) dots_per_inch_y_ = y;
}

int ScreenScale::PixelsX(ui::Twips twips) const noexcept {
  return MulDiv(twips, dots_per_inch_x_, ui::kTwipsPerInch);
}
int ScreenScale::PixelsY(ui::Twips twips) const noexcept {
  return MulDiv(twips, dots_per_inch_y_, ui::kTwipsPerInch);
}

RECT ScreenScale::Pixels(const ui::Bounds& bounds) const noexcept {
  return {PixelsX(bounds.left), PixelsY(bounds.top), PixelsX(bounds.left + bounds.width),
          PixelsY(bounds.top + bounds.height)};
}

ui::Twips ScreenScale::TwipsX(int pixels) const noexcept {
  return MulDiv(pixels, ui::kTwipsPerInch, dots_per_inch_x_);
}
ui::Twips ScreenScale::TwipsY(int pixels) const noexcept {
  return MulDiv(pixels, ui::kTwipsPerInch, dots_per_inch_y_);
}

SIZE ScreenScale::Scaled(SIZE size) const noexcept {
  return {MulDiv(size.cx, dots_per_inch_x_, kUsualDotsPerInch),
          MulDiv(size.cy, dots_per_inch_y_, kUsualDotsPerInch)};
}

int ScreenScale::FontHeight(int points) const noexcept {
  return -MulDiv(points, dots_per_inch_y_, kPointsPerInch);
}

}  // namespace quill::win32

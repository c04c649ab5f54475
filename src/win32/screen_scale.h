// Twips and pixels of the screen, by its own resolution, and windows that keep to it.
#pragma once

#include <windows.h>

#include "ui/geometry.h"

namespace quill::win32 {

class ScreenScale {
 public:
  // Asks the screen's device context.
  ScreenScale() noexcept;
  ScreenScale(int dots_per_inch_x, int dots_per_inch_y) noexcept
      : dots_per_inch_x_(dots_per_inch_x), dots_per_inch_y_(dots_per_inch_y) {}

  [[nodiscard]] int PixelsX(ui::Twips twips) const noexcept {
    return MulDiv(twips, dots_per_inch_x_, ui::kTwipsPerInch);
  }
  [[nodiscard]] int PixelsY(ui::Twips twips) const noexcept {
    return MulDiv(twips, dots_per_inch_y_, ui::kTwipsPerInch);
  }
  // Edges are rounded, not sizes, so that controls that touch in twips touch in pixels.
  [[nodiscard]] RECT Pixels(const ui::Bounds& bounds) const noexcept;
  [[nodiscard]] ui::Twips TwipsX(int pixels) const noexcept {
    return MulDiv(pixels, ui::kTwipsPerInch, dots_per_inch_x_);
  }
  [[nodiscard]] ui::Twips TwipsY(int pixels) const noexcept {
    return MulDiv(pixels, ui::kTwipsPerInch, dots_per_inch_y_);
  }

  [[nodiscard]] int dots_per_inch_x() const noexcept { return dots_per_inch_x_; }

  // For sizes that are given in pixels at 96 dots per inch.
  [[nodiscard]] SIZE Scaled(SIZE size) const noexcept {
    return {MulDiv(size.cx, dots_per_inch_x_, 96), MulDiv(size.cy, dots_per_inch_y_, 96)};
  }
  // Of a font of that many points, as LOGFONT wants it.
  [[nodiscard]] int FontHeight(int points) const noexcept {
    constexpr int kPointsPerInch = 72;
    return -MulDiv(points, dots_per_inch_y_, kPointsPerInch);
  }

 private:
  int dots_per_inch_x_;
  int dots_per_inch_y_;
};

// While one lives, a thread that is aware of each monitor's resolution knows only that of the
// system, so that the system scales the windows it makes, as a whole, where a monitor has another.
// Does nothing in other threads, and where the system does not offer that.
class SystemResolution {
 public:
  SystemResolution() noexcept;
  ~SystemResolution();
  SystemResolution(const SystemResolution&) = delete;
  SystemResolution& operator=(const SystemResolution&) = delete;

 private:
  HANDLE former_ = nullptr;  // the thread's context until then; null: nothing was changed
};

// The work area of the screen that the window is on; of the primary one for null.
[[nodiscard]] RECT WorkAreaFor(HWND window) noexcept;

}  // namespace quill::win32

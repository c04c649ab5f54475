// Twips and pixels of the screen, by its own resolution, and windows that keep to it.
#pragma once

#include <windows.h>

#include "ui/geometry.h"

namespace quill::win32 {

// The screen has one resolution for both directions.
class ScreenScale {
 public:
  ScreenScale() noexcept;  // asks the screen's device context

  [[nodiscard]] int dots_per_inch() const noexcept { return dots_per_inch_; }
  [[nodiscard]] int Pixels(ui::Twips twips) const noexcept {
    return MulDiv(twips, dots_per_inch_, ui::kTwipsPerInch);
  }
  // Edges are rounded, not sizes, so that controls that touch in twips touch in pixels.
  [[nodiscard]] RECT Pixels(const ui::Bounds& bounds) const noexcept {
    return {Pixels(bounds.left), Pixels(bounds.top), Pixels(bounds.left + bounds.width),
            Pixels(bounds.top + bounds.height)};
  }
  [[nodiscard]] ui::Twips ToTwips(int pixels) const noexcept {
    return MulDiv(pixels, ui::kTwipsPerInch, dots_per_inch_);
  }
  // For sizes that are given in pixels at 96 dots per inch.
  [[nodiscard]] SIZE Scaled(SIZE size) const noexcept {
    return {MulDiv(size.cx, dots_per_inch_, 96), MulDiv(size.cy, dots_per_inch_, 96)};
  }

 private:
  int dots_per_inch_ = 96;
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

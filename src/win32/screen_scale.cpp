#include "win32/screen_scale.h"

#include <utility>

namespace quill::win32 {
namespace {

constexpr int kPointsPerInch = 72;

// Of Windows 10 and later.
using SetContext = HANDLE(WINAPI*)(HANDLE context);  // SetThreadDpiAwarenessContext
using AwarenessOf = int(WINAPI*)(HANDLE context);    // GetAwarenessFromDpiAwarenessContext
constexpr INT_PTR kSystemAware = -2;                 // DPI_AWARENESS_CONTEXT_SYSTEM_AWARE
constexpr int kPerMonitorAware = 2;                  // DPI_AWARENESS_PER_MONITOR_AWARE

struct Offered {
  bool is_known = false;
  SetContext set_context = nullptr;
  AwarenessOf awareness_of = nullptr;
};
constinit Offered offered;

const Offered& WhatIsOffered() noexcept {
  if (!std::exchange(offered.is_known, true)) {
    const HMODULE user = GetModuleHandleW(L"user32.dll");
    const auto find = [&](const char* name) {
      return reinterpret_cast<void*>(GetProcAddress(user, name));
    };
    offered.set_context = reinterpret_cast<SetContext>(find("SetThreadDpiAwarenessContext"));
    offered.awareness_of =
        reinterpret_cast<AwarenessOf>(find("GetAwarenessFromDpiAwarenessContext"));
  }
  return offered;
}
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

SystemResolution::SystemResolution() noexcept {
  const auto& [is_known, set_context, awareness_of] = WhatIsOffered();
  if (set_context == nullptr || awareness_of == nullptr) return;
  former_ = set_context(reinterpret_cast<HANDLE>(kSystemAware));
  if (former_ != nullptr && awareness_of(former_) != kPerMonitorAware) {
    set_context(std::exchange(former_, nullptr));
  }
}

SystemResolution::~SystemResolution() {
  if (former_ != nullptr) WhatIsOffered().set_context(former_);
}

}  // namespace quill::win32

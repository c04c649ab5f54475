// What the screen's resolution makes of sizes, and which resolution counts.
#include "win32/screen_scale.h"

#include <utility>

#include "win32/drawing.h"

namespace quill::win32 {
namespace {

// A function of Windows 10 and later; null where there is none.
template <class Function>
Function Offered(const char* name) noexcept {
  return reinterpret_cast<Function>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

HANDLE SetContext(HANDLE context) noexcept {
  const auto set = Offered<HANDLE(WINAPI*)(HANDLE)>("SetThreadDpiAwarenessContext");
  return set != nullptr ? set(context) : nullptr;
}

}  // namespace

ScreenScale::ScreenScale() noexcept {
  const int asked = GetDeviceCaps(WindowContext(nullptr).get(), LOGPIXELSX);
  if (asked > 0) dots_per_inch_ = asked;
}

SystemResolution::SystemResolution() noexcept {
  constexpr INT_PTR kSystemAware = -2;  // DPI_AWARENESS_CONTEXT_SYSTEM_AWARE
  constexpr int kPerMonitorAware = 2;   // DPI_AWARENESS_PER_MONITOR_AWARE
  const auto awareness_of = Offered<int(WINAPI*)(HANDLE)>("GetAwarenessFromDpiAwarenessContext");
  if (awareness_of == nullptr) return;
  former_ = SetContext(reinterpret_cast<HANDLE>(kSystemAware));
  // The context tells what it was only by being replaced.
  if (former_ != nullptr && awareness_of(former_) != kPerMonitorAware) {
    SetContext(std::exchange(former_, nullptr));
  }
}

SystemResolution::~SystemResolution() {
  if (former_ != nullptr) SetContext(former_);
}

RECT WorkAreaFor(HWND window) noexcept {
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
  return monitor.rcWork;
}

}  // namespace quill::win32

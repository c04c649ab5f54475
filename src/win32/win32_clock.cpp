// The system's two clocks: one that is never set, and the one on the wall.
#include "win32/win32_clock.h"

#include <windows.h>

namespace quill::win32 {

std::uint64_t Win32Clock::Ticks() {
  LARGE_INTEGER ticks = {};
  QueryPerformanceCounter(&ticks);
  return static_cast<std::uint64_t>(ticks.QuadPart);
}

int Win32Clock::MinuteOfDay() {
  SYSTEMTIME now = {};
  GetLocalTime(&now);
  return now.wHour * 60 + now.wMinute;
}

}  // namespace quill::win32

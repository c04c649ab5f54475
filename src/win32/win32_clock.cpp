#include "win32/win32_clock.h"

#include <windows.h>

namespace quill::win32 {

std::uint64_t Win32Clock::Ticks() {
  LARGE_INTEGER ticks = {};
  QueryPerformanceCounter(&ticks);
  return static_cast<std::uint64_t>(ticks.QuadPart);
}

std::uint64_t Win32Clock::Milliseconds() {
  return GetTickCount64();
}

}  // namespace quill::win32

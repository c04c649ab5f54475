// The machine's performance counter and its local time as the clock.
#pragma once

#include <windows.h>

#include "support/clock.h"

namespace quill::win32 {

class Win32Clock final : public Clock {
 public:
  std::uint64_t Ticks() override {
    LARGE_INTEGER ticks = {};
    QueryPerformanceCounter(&ticks);
    return static_cast<std::uint64_t>(ticks.QuadPart);
  }
  int MinuteOfDay() override {
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    return now.wHour * 60 + now.wMinute;
  }
};

}  // namespace quill::win32

// The machine's performance counter and its local time as the clock.
#pragma once

#include "support/clock.h"

namespace quill::win32 {

class Win32Clock final : public Clock {
 public:
  std::uint64_t Ticks() override;
  int MinuteOfDay() override;
};

}  // namespace quill::win32

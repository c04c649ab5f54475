// The machine's performance counter as the clock.
#pragma once

#include "support/clock.h"

namespace quill::win32 {

class Win32Clock final : public Clock {
 public:
  std::uint64_t Ticks() override;
  std::uint64_t Milliseconds() override;
};

}  // namespace quill::win32

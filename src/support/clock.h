// The system clock, as far as it seeds the shuffle and tells how long something takes.
#pragma once

#include <cstdint>

namespace quill {

class Clock {
 public:
  virtual ~Clock() = default;
  // Ticks of the finest clock at hand; two calls in a row may give the same value.
  virtual std::uint64_t Ticks() = 0;
  // Since some moment; never goes back.
  virtual std::uint64_t Milliseconds() = 0;
};

}  // namespace quill

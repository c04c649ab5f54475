// The system clock, as far as it seeds the shuffle and tells the operator the time.
#pragma once

#include <cstdint>

namespace quill {

class Clock {
 public:
  virtual ~Clock() = default;
  // Ticks of the finest clock at hand; two calls in a row may give the same value.
  virtual std::uint64_t Ticks() = 0;
  // Minutes since midnight, local time: 0 to 1439.
  virtual int MinuteOfDay() = 0;
};

}  // namespace quill

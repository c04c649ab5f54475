// The system clock, as far as it seeds the shuffle.
#pragma once

#include <cstdint>

namespace quill {

class Clock {
 public:
  virtual ~Clock() = default;
  // Ticks of the finest clock at hand; two calls in a row may give the same value.
  virtual std::uint64_t Ticks() = 0;
};

}  // namespace quill

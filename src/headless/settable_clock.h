// A clock that stands where it was set, so that a shuffle can be foretold.
#pragma once

#include "support/clock.h"

namespace quill::headless {

class SettableClock final : public Clock {
 public:
  explicit SettableClock(std::uint64_t ticks = 0) noexcept : ticks_(ticks) {}
  std::uint64_t Ticks() override { return ticks_; }
  void Set(std::uint64_t ticks) noexcept { ticks_ = ticks; }

 private:
  std::uint64_t ticks_;
};

}  // namespace quill::headless

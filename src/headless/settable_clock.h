// A clock that stands where it was set, so that a shuffle can be foretold and a wait passes at
// once.
#pragma once

#include "support/clock.h"

namespace quill::headless {

class SettableClock final : public Clock {
 public:
  explicit SettableClock(std::uint64_t ticks = 0) noexcept : ticks_(ticks) {}
  std::uint64_t Ticks() override { return ticks_; }
  void Set(std::uint64_t ticks) noexcept { ticks_ = ticks; }
  std::uint64_t Milliseconds() override { return milliseconds_; }
  void Advance(std::uint64_t milliseconds) noexcept { milliseconds_ += milliseconds; }

 private:
  std::uint64_t ticks_;
  std::uint64_t milliseconds_ = 0;
};

}  // namespace quill::headless

// A clock that stands where it was set, so that a shuffle and a time of day are known in advance.
#pragma once

#include "support/clock.h"

namespace quill::headless {

class SettableClock final : public Clock {
 public:
  explicit SettableClock(std::uint64_t ticks = 0) noexcept : ticks_(ticks) {}
  std::uint64_t Ticks() override { return ticks_; }
  void Set(std::uint64_t ticks) noexcept { ticks_ = ticks; }
  int MinuteOfDay() override { return minute_of_day_; }
  void SetMinuteOfDay(int minute) noexcept { minute_of_day_ = minute; }

 private:
  std::uint64_t ticks_;
  int minute_of_day_ = 0;
};

}  // namespace quill::headless

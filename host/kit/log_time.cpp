// Calendar arithmetic for log entries.
#include "host/kit/log_time.h"

#include <array>
#include <cstdio>

namespace quill::host {
TimeSource SystemTime() {
  return [] { return std::chrono::system_clock::now(); };
}

Text LogTime(std::chrono::system_clock::time_point time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(std::chrono::floor<std::chrono::seconds>(time - day));
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02dZ",
                static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                static_cast<unsigned>(date.day()), static_cast<int>(clock.hours().count()),
                static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return FromUtf8(text.data());
}

}  // namespace quill::host

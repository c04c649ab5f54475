// Calendar arithmetic for log entries.
#include "host/kit/log_time.h"

namespace quill::host {
namespace {

void AppendPadded(Text& target, std::int64_t value, std::size_t width) {
  const Text digits = Decimal(value);
  if (digits.size() < width) target.append(width - digits.size(), u'0');
  target += digits;
}

}  // namespace

TimeSource SystemTime() {
  return [] { return std::chrono::system_clock::now(); };
}

Text LogTime(std::chrono::system_clock::time_point time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(std::chrono::floor<std::chrono::seconds>(time - day));
  Text text;
  AppendPadded(text, static_cast<int>(date.year()), 4);
  text += u'-';
  AppendPadded(text, static_cast<unsigned>(date.month()), 2);
  text += u'-';
  AppendPadded(text, static_cast<unsigned>(date.day()), 2);
  text += u' ';
  AppendPadded(text, clock.hours().count(), 2);
  text += u':';
  AppendPadded(text, clock.minutes().count(), 2);
  text += u':';
  AppendPadded(text, clock.seconds().count(), 2);
  text += u'Z';
  return text;
}

}  // namespace quill::host

// Reads numbers and truth values from text. Numbers are taken apart into their digits, so that no
// count of digits overflows.
#include "support/number_text.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "support/runtime_error.h"

namespace quill {
namespace {

TextView TrimWhiteSpace(TextView text) noexcept {
  constexpr TextView kWhiteSpace = u" \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
  // In an empty text nothing is found, and npos + 1 is 0.
  return text.substr(0, text.find_last_not_of(kWhiteSpace) + 1);
}

bool IsDigit(char16_t unit) noexcept {
  return unit >= u'0' && unit <= u'9';
}

// A number taken apart; the digits stay text, so that their count does not matter.
struct Number {
  bool negative;
  TextView whole;     // without leading zeros, so empty for 0
  TextView fraction;  // without trailing zeros, so empty for a whole number
};

// The digits that `text` begins with, taken off it.
TextView TakeDigits(TextView& text) noexcept {
  std::size_t count = 0;
  while (count < text.size() && IsDigit(text[count])) ++count;
  const TextView digits = text.substr(0, count);
  text.remove_prefix(count);
  return digits;
}

std::optional<Number> Parse(TextView text) noexcept {
  text = TrimWhiteSpace(text);
  Number number{};
  if (text.starts_with(u'-') || text.starts_with(u'+')) {
    number.negative = text.front() == u'-';
    text.remove_prefix(1);
  }
  number.whole = TakeDigits(text);
  if (number.whole.empty()) return std::nullopt;
  if (text.starts_with(u'.')) {
    text.remove_prefix(1);
    number.fraction = TakeDigits(text);
    if (number.fraction.empty()) return std::nullopt;
  }
  if (!text.empty()) return std::nullopt;

  while (number.whole.starts_with(u'0')) number.whole.remove_prefix(1);
  while (number.fraction.ends_with(u'0')) number.fraction.remove_suffix(1);
  return number;
}

Number ParseOrFail(TextView text) {
  const std::optional<Number> number = Parse(text);
  if (!number) throw RuntimeError(ErrorNumber::kTypeMismatch);
  return *number;
}

// The whole part with its sign; beyond every 32-bit number, but not exact, when it has more digits
// than those have.
std::int64_t Truncated(const Number& number) noexcept {
  constexpr std::int64_t kHuge = std::int64_t{1} << 40;
  constexpr std::size_t kMostDigits = std::numeric_limits<std::int32_t>::digits10 + 1;
  std::int64_t value = 0;
  if (number.whole.size() > kMostDigits) {
    value = kHuge;
  } else {
    for (char16_t digit : number.whole) value = value * 10 + (digit - u'0');
  }
  return number.negative ? -value : value;
}

std::int64_t Rounded(const Number& number) noexcept {
  const std::int64_t value = Truncated(number);
  const bool odd = value % 2 != 0;
  // Texts of digits compare like the fractions they are; "5" is exactly one half.
  const bool away_from_zero = number.fraction > u"5" || (number.fraction == u"5" && odd);
  if (!away_from_zero) return value;
  return number.negative ? value - 1 : value + 1;
}

template <class Integer>
Integer ToInteger(TextView text) {
  const std::int64_t value = Rounded(ParseOrFail(text));
  if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max()) {
    throw RuntimeError(ErrorNumber::kOverflow);
  }
  return static_cast<Integer>(value);
}

}  // namespace

bool IsNumber(TextView text) noexcept {
  return Parse(text).has_value();
}

std::int16_t ToInt16(TextView text) {
  return ToInteger<std::int16_t>(text);
}

std::int32_t ToInt32(TextView text) {
  return ToInteger<std::int32_t>(text);
}

bool IsGreaterThan(TextView text, std::int32_t limit) {
  const Number number = ParseOrFail(text);
  const std::int64_t value = Truncated(number);
  if (value != limit) return value > limit;
  // A fraction moves a positive number up and a negative one down.
  return !number.negative && !number.fraction.empty();
}

bool ToTruth(TextView text) {
  const TextView word = TrimWhiteSpace(text);
  if (EqualIgnoringCase(word, u"true")) return true;
  if (EqualIgnoringCase(word, u"false")) return false;
  const Number number = ParseOrFail(text);
  // Zeros at the ends are gone, so whatever digits are left do not equal 0.
  return !number.whole.empty() || !number.fraction.empty();
}

}  // namespace quill

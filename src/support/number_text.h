// Numbers and truth values written as text, independent of the machine's locale.
//
// A number is an optional sign, at least one digit, and an optional decimal part (a point and at
// least one digit), with blanks, tabs and line ends around it ignored; nothing else (no exponent,
// no grouping, no hexadecimal). An empty or blank text is not a number.
#pragma once

#include <cstdint>

#include "support/text.h"

namespace quill {

[[nodiscard]] bool IsNumber(TextView text) noexcept;

// Whole numbers by rounding half to the even neighbour, computed exactly however many digits there
// are. kTypeMismatch when `text` is not a number, kOverflow when the rounded value does not fit.
[[nodiscard]] std::int16_t ToInt16(TextView text);
[[nodiscard]] std::int32_t ToInt32(TextView text);

// True when the number is greater than `limit`, exact for any number of digits. kTypeMismatch when
// `text` is not a number.
[[nodiscard]] bool IsGreaterThan(TextView text, std::int32_t limit);

// "0" (or any number that equals 0) is false, any other number is true; the words true and false
// count in any letter case. kTypeMismatch otherwise.
[[nodiscard]] bool ToTruth(TextView text);

}  // namespace quill

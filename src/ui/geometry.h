// Measures of the dialog: twips, 1/1440 inch, relative to the container.
#pragma once

#include <cstdint>

namespace quill::ui {

using Twips = std::int32_t;
inline constexpr std::int32_t kTwipsPerInch = 1440;
inline constexpr int kFontPoints = 8;  // size of the dialog's one font, 1/72 inch each

struct Bounds {
  Twips left = 0;
  Twips top = 0;
  Twips width = 0;
  Twips height = 0;

  friend bool operator==(const Bounds&, const Bounds&) = default;
};

// The nearest integer to numerator / denominator, a half going to the even neighbour (3 / 2 -> 2,
// 5 / 2 -> 2). The denominator is greater than 0.
[[nodiscard]] constexpr Twips Nearest(std::int64_t numerator, std::int32_t denominator) noexcept {
  const std::int64_t towards_zero = numerator / denominator;
  const std::int64_t rest = numerator % denominator;
  const std::int64_t twice_the_rest = 2 * (rest < 0 ? -rest : rest);
  const bool rounds_away =
      twice_the_rest > denominator || (twice_the_rest == denominator && towards_zero % 2 != 0);
  return static_cast<Twips>(towards_zero + (rounds_away ? (numerator < 0 ? -1 : 1) : 0));
}

}  // namespace quill::ui

// Measures of the dialog: twips, 1/1440 inch, relative to the container.
#pragma once

#include <cstdint>

namespace quill::ui {

using Twips = std::int32_t;
inline constexpr std::int32_t kTwipsPerInch = 1440;

struct Bounds {
  Twips left = 0;
  Twips top = 0;
  Twips width = 0;
  Twips height = 0;

  friend bool operator==(const Bounds&, const Bounds&) = default;
};

// The nearest integer to numerator / denominator, a half going to the even neighbour (3 / 2 -> 2,
// 5 / 2 -> 2). The denominator is greater than 0.
[[nodiscard]] Twips Nearest(std::int64_t numerator, std::int32_t denominator) noexcept;

}  // namespace quill::ui

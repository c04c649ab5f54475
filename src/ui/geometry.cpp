// Rounding of measures.
#include "ui/geometry.h"

namespace quill::ui {

Twips Nearest(std::int64_t numerator, std::int32_t denominator) noexcept {
  const std::int64_t towards_zero = numerator / denominator;
  const std::int64_t below = towards_zero - (numerator % denominator < 0 ? 1 : 0);
  const std::int64_t twice_the_rest = 2 * (numerator - below * denominator);
  const bool rounds_up =
      twice_the_rest > denominator || (twice_the_rest == denominator && below % 2 != 0);
  return static_cast<Twips>(below + (rounds_up ? 1 : 0));
}

}  // namespace quill::ui

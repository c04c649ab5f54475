// Rounding of measures.
#include "ui/geometry.h"

namespace quill::ui {

Twips NearestHalf(std::int64_t numerator) noexcept {
  const std::int64_t below = numerator >> 1;
  const bool is_half = (numerator & 1) != 0;
  return static_cast<Twips>(is_half ? below + (below & 1) : below);
}

}  // namespace quill::ui

// Finds one 16-bit unit in a text. A reply is searched from end to end three times before anything
// else is done with it, and what is looked for stands many units apart: hence sixteen units per
// step where the processor is known to be able to.
#pragma once

#include "support/compiler.h"

#ifdef QUILL_HAS_SSE2
#include <emmintrin.h>

#include <bit>
#endif

namespace quill {

// The first `unit` from `at` on, or `end`.
[[nodiscard]] inline const char16_t* FindUnit(const char16_t* at, const char16_t* end,
                                              char16_t unit) noexcept {
#ifdef QUILL_HAS_SSE2
  const __m128i wanted = _mm_set1_epi16(static_cast<short>(unit));
  const auto matches = [&wanted](const char16_t* eight) {
    return _mm_cmpeq_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(eight)), wanted);
  };
  // One bit for each unit.
  const auto places = [](__m128i first, __m128i second) {
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(first, second)));
  };
  for (; end - at >= 16; at += 16) {
    const unsigned found = places(matches(at), matches(at + 8));
    if (found != 0) return at + std::countr_zero(found);
  }
  if (end - at >= 8) {
    const unsigned found = places(matches(at), _mm_setzero_si128());
    if (found != 0) return at + std::countr_zero(found);
    at += 8;
  }
#endif
  while (at != end && *at != unit) ++at;
  return at;
}

}  // namespace quill

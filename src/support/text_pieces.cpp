#include "support/text_pieces.h"

#include <cassert>

#include "support/find_unit.h"

namespace quill {

bool PieceCursor::Next(TextView& piece) noexcept {
  assert(!separator_.empty());
  if (ended_) return false;
  const char16_t* const begin = rest_.data();
  const char16_t* const end = begin + rest_.size();
  for (const char16_t* at = begin;; ++at) {
    at = FindUnit(at, end, separator_.front());
    if (at == end) break;
    if (separator_.size() == 1 || TextView(at, end).starts_with(separator_)) {
      piece = TextView(begin, at);
      rest_ = TextView(at + separator_.size(), end);
      return true;
    }
  }
  piece = rest_;
  ended_ = true;
  return true;
}

}  // namespace quill

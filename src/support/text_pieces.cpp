#include "support/text_pieces.h"

#include <cassert>
#include <cstring>

namespace quill {
namespace {

constexpr std::uint64_t kOnes = 0x0001'0001'0001'0001;
constexpr std::uint64_t kHighBits = 0x8000'8000'8000'8000;

// Not 0 when one of the four units equals the one that `pattern` repeats.
std::uint64_t Matches(const char16_t* four, std::uint64_t pattern) noexcept {
  std::uint64_t units;
  std::memcpy(&units, four, sizeof units);
  units ^= pattern;
  return (units - kOnes) & ~units & kHighBits;
}

// Four units per step, because separators are many units apart.
const char16_t* FindUnit(const char16_t* at, const char16_t* end, char16_t unit) noexcept {
  const std::uint64_t pattern = kOnes * unit;
  while (end - at >= 8 && (Matches(at, pattern) | Matches(at + 4, pattern)) == 0) at += 8;
  while (at != end && *at != unit) ++at;
  return at;
}

}  // namespace

bool PieceCursor::Next(TextView& piece) noexcept {
  assert(!separator_.empty());
  if (ended_) return false;
  const char16_t* const begin = rest_.data();
  const char16_t* const end = begin + rest_.size();
  for (const char16_t* at = begin;; ++at) {
    at = FindUnit(at, end, separator_.front());
    if (at == end) break;
    if (TextView(at, end).starts_with(separator_)) {
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

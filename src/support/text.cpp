// Searching, converting and joining texts unit by unit.
#include "support/text.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <charconv>
#include <limits>

#include "support/compiler.h"

#ifdef QUILL_HAS_SSE2
#include <emmintrin.h>
#endif

namespace quill {
namespace {

constexpr char16_t kReplacement = u'\uFFFD';

// Appends one code point (at most U+10FFFF, no surrogate) in UTF-8.
void AppendUtf8(std::string& target, char32_t point) {
  if (point < 0x80) {
    target += static_cast<char>(point);
    return;
  }
  const int continuations = point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
  constexpr unsigned char kLeads[] = {0, 0xC0, 0xE0, 0xF0};
  target += static_cast<char>(kLeads[continuations] | (point >> (6 * continuations)));
  for (int shift = 6 * (continuations - 1); shift >= 0; shift -= 6) {
    target += static_cast<char>(0x80 | ((point >> shift) & 0x3F));
  }
}

void AppendUtf16(Text& target, char32_t point) {
  if (point < 0x10000) {
    target += static_cast<char16_t>(point);
    return;
  }
  target += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
  target += static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
}

bool IsHighSurrogate(char16_t unit) noexcept {
  return (unit & 0xFC00) == 0xD800;
}
bool IsLowSurrogate(char16_t unit) noexcept {
  return (unit & 0xFC00) == 0xDC00;
}

// The first `unit` from `at` on, or `end`. A reply is searched from end to end more than once, and
// what is looked for stands many units apart: hence eight units a step where every processor can.
const char16_t* FindUnit(const char16_t* at, const char16_t* end, char16_t unit) noexcept {
#ifdef QUILL_HAS_SSE2
  const __m128i wanted = _mm_set1_epi16(static_cast<short>(unit));
  for (; end - at >= 8; at += 8) {
    const __m128i eight = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const int found = _mm_movemask_epi8(_mm_cmpeq_epi16(eight, wanted));  // two bits for each unit
    if (found != 0) return at + std::countr_zero(static_cast<unsigned>(found)) / 2;
  }
#endif
  while (at != end && *at != unit) ++at;
  return at;
}

template <class Convert>
Text Converted(TextView text, Convert convert) {
  Text result(text);
  std::transform(result.begin(), result.end(), result.begin(), convert);
  return result;
}

}  // namespace

Text Decimal(std::int64_t value) {
  Text result;
  AppendDecimal(result, value);
  return result;
}

void AppendDecimal(Text& target, std::int64_t value) {
  // The largest number has one digit more than digits10, and may have a sign.
  char digits[std::numeric_limits<std::int64_t>::digits10 + 2];
  const auto [end, error] = std::to_chars(std::begin(digits), std::end(digits), value);
  target.append(std::begin(digits), end);
}

Text Concat(std::initializer_list<TextView> parts) {
  std::size_t size = 0;
  for (TextView part : parts) size += part.size();
  Text result;
  result.reserve(size);
  for (TextView part : parts) result += part;
  return result;
}

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

std::vector<TextView> Split(TextView text, TextView separator) {
  std::vector<TextView> pieces;
  PieceCursor cursor(text, separator);
  for (TextView piece; cursor.Next(piece);) pieces.push_back(piece);
  return pieces;
}

Text ReplaceAll(TextView text, TextView from, TextView to) {
  Text result;
  result.reserve(text.size());
  PieceCursor kept(text, from);
  TextView piece;
  // Even an empty text has a first piece.
  kept.Next(piece);
  result += piece;
  while (kept.Next(piece)) {
    result += to;
    result += piece;
  }
  return result;
}

// U+00D7 and U+00F7 are signs between the letters, and U+00DF and U+00FF have no capital in
// Latin-1.
char16_t ToLower(char16_t unit) noexcept {
  const bool upper =
      (unit >= u'A' && unit <= u'Z') || (unit >= 0xC0 && unit <= 0xDE && unit != 0xD7);
  return upper ? static_cast<char16_t>(unit + 0x20) : unit;
}

char16_t ToUpper(char16_t unit) noexcept {
  const bool lower =
      (unit >= u'a' && unit <= u'z') || (unit >= 0xE0 && unit <= 0xFE && unit != 0xF7);
  return lower ? static_cast<char16_t>(unit - 0x20) : unit;
}

Text ToLower(TextView text) {
  return Converted(text, [](char16_t unit) { return ToLower(unit); });
}

Text ToUpper(TextView text) {
  return Converted(text, [](char16_t unit) { return ToUpper(unit); });
}

bool EqualIgnoringCase(TextView left, TextView right) noexcept {
  return left.size() == right.size() &&
         std::equal(left.begin(), left.end(), right.begin(),
                    [](char16_t l, char16_t r) { return ToLower(l) == ToLower(r); });
}

std::string ToUtf8(TextView text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t point = text[i];
    if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      point = 0x10000 + ((point & 0x3FF) << 10) + (text[++i] & 0x3FF);
    } else if (IsHighSurrogate(text[i]) || IsLowSurrogate(text[i])) {
      point = kReplacement;
    }
    AppendUtf8(result, point);
  }
  return result;
}

Text FromUtf8(std::string_view bytes) {
  // By the number of continuation bytes: a lower point is written with fewer of them, and has no
  // second form.
  constexpr char32_t kFirstPoints[] = {0, 0x80, 0x800, 0x10000};
  Text result;
  result.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    const auto lead = static_cast<unsigned char>(bytes[i++]);
    const int ones = std::countl_one(lead);  // none in ASCII, one in a continuation byte
    if (ones == 1 || ones > 4) {
      result += kReplacement;
      continue;
    }
    int missing = std::max(ones - 1, 0);
    char32_t point = lead & (0x7F >> ones);
    const char32_t first = kFirstPoints[missing];
    for (; missing > 0 && i < bytes.size(); --missing, ++i) {
      const auto next = static_cast<unsigned char>(bytes[i]);
      point = point << 6 | (next & 0x3F);
      // A sequence ends before the byte that makes it ill-formed.
      const char32_t least = point << (6 * (missing - 1));
      const bool is_surrogate = least >> 11 == 0xD800 >> 11;
      if (std::countl_one(next) != 1 || least < first || is_surrogate || least > 0x10FFFF) break;
    }
    AppendUtf16(result, missing == 0 ? point : kReplacement);
  }
  return result;
}

}  // namespace quill

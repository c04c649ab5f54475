#include "support/text.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "support/text_pieces.h"

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

// How the bytes after a lead byte must look. The range of the first one keeps out overlong forms,
// surrogates and points beyond U+10FFFF.
struct Utf8Lead {
  int continuations;  // -1 for a byte that leads nothing
  unsigned char first_low = 0x80;
  unsigned char first_high = 0xBF;
};

constexpr Utf8Lead LeadOf(unsigned char byte) noexcept {
  if (byte < 0x80) return {0};
  if (byte < 0xC2) return {-1};
  if (byte < 0xE0) return {1};
  if (byte == 0xE0) return {2, 0xA0};
  if (byte == 0xED) return {2, 0x80, 0x9F};
  if (byte < 0xF0) return {2};
  if (byte == 0xF0) return {3, 0x90};
  if (byte < 0xF4) return {3};
  if (byte == 0xF4) return {3, 0x80, 0x8F};
  return {-1};
}

bool IsHighSurrogate(char16_t unit) noexcept {
  return (unit & 0xFC00) == 0xD800;
}
bool IsLowSurrogate(char16_t unit) noexcept {
  return (unit & 0xFC00) == 0xDC00;
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
  kept.Next(piece);
  result += piece;
  while (kept.Next(piece)) {
    result += to;
    result += piece;
  }
  return result;
}

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
  Text result;
  result.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    const auto first = static_cast<unsigned char>(bytes[i++]);
    const Utf8Lead lead = LeadOf(first);
    if (lead.continuations < 0) {
      result += kReplacement;
      continue;
    }
    char32_t point = lead.continuations == 0 ? first : first & (0x3F >> lead.continuations);
    unsigned char low = lead.first_low;
    unsigned char high = lead.first_high;
    int missing = lead.continuations;
    for (; missing > 0 && i < bytes.size(); --missing, ++i) {
      const auto next = static_cast<unsigned char>(bytes[i]);
      if (next < low || next > high) break;
      point = (point << 6) | (next & 0x3F);
      low = 0x80;
      high = 0xBF;
    }
    AppendUtf16(result, missing == 0 ? point : kReplacement);
  }
  return result;
}

}  // namespace quill

// Text as the host's strings are: sequences of 16-bit units, with any unit allowed (lone surrogates
// and zeros included). Lengths and positions count units. Nothing here depends on a locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace quill {

using Text = std::u16string;
using TextView = std::u16string_view;

inline constexpr TextView kLineBreak = u"\r\n";

// `text` without leading and trailing blanks. A blank is U+0020 only: tabs, line ends and no-break
// spaces stay.
[[nodiscard]] inline TextView TrimBlanks(TextView text) noexcept {
  while (!text.empty() && text.back() == u' ') text.remove_suffix(1);
  while (!text.empty() && text.front() == u' ') text.remove_prefix(1);
  return text;
}

// True for an empty text and for one of blanks only.
[[nodiscard]] inline bool IsBlank(TextView text) noexcept {
  return TrimBlanks(text).empty();
}

// `value` in decimal: "-" when negative, no leading zeros, no grouping.
[[nodiscard]] Text Decimal(std::int64_t value);
void AppendDecimal(Text& target, std::int64_t value);

// The parts joined without a separator, in one allocation.
[[nodiscard]] Text Concat(std::initializer_list<TextView> parts);

// The pieces of a text between occurrences of a separator, at least one, without an allocation.
//
//   PieceCursor fields(payload, u"_");
//   for (TextView field; fields.Next(field);) ...
class PieceCursor {
 public:
  // Both texts must outlive the cursor and the pieces. `separator` is not empty.
  PieceCursor(TextView text, TextView separator) noexcept : rest_(text), separator_(separator) {}

  // Gives the next piece; false, leaving `piece` alone, after the last one.
  bool Next(TextView& piece) noexcept;

 private:
  TextView rest_;
  TextView separator_;
  bool ended_ = false;
};

// The same pieces, all at once.
[[nodiscard]] std::vector<TextView> Split(TextView text, TextView separator);

// Every occurrence of `from` (not empty), found from the left without overlap, replaced by `to`.
// Exact comparison.
[[nodiscard]] Text ReplaceAll(TextView text, TextView from, TextView to);

// Letter case by ASCII and Latin-1 rules; other letters compare exactly.
[[nodiscard]] char16_t ToLower(char16_t unit) noexcept;
[[nodiscard]] char16_t ToUpper(char16_t unit) noexcept;
[[nodiscard]] Text ToLower(TextView text);
[[nodiscard]] Text ToUpper(TextView text);
[[nodiscard]] bool EqualIgnoringCase(TextView left, TextView right) noexcept;

// Between text and UTF-8, for files that people read and for the command line. Ill-formed input
// becomes U+FFFD in both directions.
[[nodiscard]] std::string ToUtf8(TextView text);
[[nodiscard]] Text FromUtf8(std::string_view bytes);

}  // namespace quill

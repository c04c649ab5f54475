// Base64 of free-text payload fields (RFC 4648, section 4: standard alphabet, "=" padding, no line
// breaks), so that the field separators of the wire formats cannot occur inside them.
//
// Nothing here may be used by what runs before main or the library's own start, the initialisers of
// static objects: the tables are made there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "support/code_page.h"
#include "support/text.h"

namespace quill {

class MessageReporter;

[[nodiscard]] Text EncodeBase64(std::span<const std::uint8_t> bytes);

// Malformed input (a length that is no multiple of 4, a character outside the alphabet, "="
// anywhere but as the last one or two characters) fails with kInvalidProcedureCall and a
// description that says what is wrong. Unused bits before the padding are ignored.
[[nodiscard]] std::vector<std::uint8_t> DecodeBase64(TextView encoded);

// `text`, converted with `page`, in Base64. A failure is reported through `reporter` with the label
// "Enc64" and line 0, and gives an empty text.
[[nodiscard]] Text Enc64(TextView text, const CodePage& page, MessageReporter& reporter);

// The text of a Base64 field. Malformed input fails as DecodeBase64 does.
[[nodiscard]] Text Dec64(TextView encoded, const CodePage& page);

// The same for callers with room of their own: for Enc64Length(text.size()) units, all of which are
// written, ...
void Enc64To(TextView text, const CodePage& page, char16_t* room);
[[nodiscard]] constexpr std::size_t Enc64Length(std::size_t text_size) noexcept {
  return (text_size + 2) / 3 * 4;
}
// ... and for Dec64Room(encoded.size()) units. Returns how many of them are the text; on failure
// their values are undefined.
[[nodiscard]] std::size_t Dec64To(TextView encoded, const CodePage& page, char16_t* room);
[[nodiscard]] constexpr std::size_t Dec64Room(std::size_t encoded_size) noexcept {
  return encoded_size / 4 * 3;
}

}  // namespace quill

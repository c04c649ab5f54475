// Text files as the host keeps them: how bytes become text and back.
//
// Reading: UTF-16 (little endian) with a byte-order mark, UTF-8 with or without one, and
// Windows-1252 for bytes that are not valid UTF-8. Writing a new file: UTF-8 without a mark, which
// is plain ASCII for most files. A file that is changed keeps its encoding, except that one in
// Windows-1252 becomes UTF-8 when its new text needs that. Lone surrogates survive in UTF-16 only;
// elsewhere they become U+FFFD.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "support/text.h"

namespace quill::host {

// The 16-bit units as bytes, little endian; an odd last byte is dropped.
[[nodiscard]] std::string ToUtf16Bytes(TextView text);
[[nodiscard]] Text FromUtf16Bytes(std::string_view bytes);

enum class TextEncoding : std::uint8_t { kUtf8, kUtf8WithMark, kUtf16WithMark, kWindows1252 };

struct DecodedFile {
  Text text;
  TextEncoding encoding = TextEncoding::kUtf8;
};

// Decodes any bytes, NULs included; no byte-order mark is left in the text.
[[nodiscard]] DecodedFile DecodeTextFile(std::string_view bytes);

[[nodiscard]] std::string EncodeTextFile(TextView text,
                                         TextEncoding encoding = TextEncoding::kUtf8);

}  // namespace quill::host

// Recognising, decoding and encoding of text files.
#include "host/kit/text_file.h"

#include <algorithm>

#include "support/code_page.h"

namespace quill::host {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";

// The text in Windows-1252, or nothing when it would not be read back as the same text.
std::string ToWindows1252(TextView text) {
  std::string bytes;
  for (const char16_t unit : text) {
    bytes += static_cast<char>(CodePage::Windows1252().ToByte(unit));
  }
  return DecodeTextFile(bytes).text == text ? bytes : std::string();
}

}  // namespace

Text FromUtf16Bytes(std::string_view bytes) {
  Text text(bytes.size() / 2, u'\0');
  for (std::size_t at = 0; at < text.size(); ++at) {
    text[at] = static_cast<char16_t>(static_cast<std::uint8_t>(bytes[2 * at]) |
                                     (static_cast<std::uint8_t>(bytes[2 * at + 1]) << 8));
  }
  return text;
}

std::string ToUtf16Bytes(TextView text) {
  std::string bytes;
  bytes.reserve(2 * text.size());
  for (const char16_t unit : text) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

DecodedFile DecodeTextFile(std::string_view bytes) {
  if (bytes.starts_with(kUtf16Mark)) {
    return {FromUtf16Bytes(bytes.substr(2)), TextEncoding::kUtf16WithMark};
  }
  const bool has_mark = bytes.starts_with(kUtf8Mark);
  if (has_mark) bytes.remove_prefix(kUtf8Mark.size());
  Text text = FromUtf8(bytes);
  if (ToUtf8(text) == bytes) {
    return {std::move(text), has_mark ? TextEncoding::kUtf8WithMark : TextEncoding::kUtf8};
  }
  text.clear();
  for (const char byte : bytes) {
    text += CodePage::Windows1252().ToUnit(static_cast<std::uint8_t>(byte));
  }
  return {std::move(text), TextEncoding::kWindows1252};
}

std::string EncodeTextFile(TextView text, TextEncoding encoding) {
  switch (encoding) {
    case TextEncoding::kUtf16WithMark:
      return std::string(kUtf16Mark) + ToUtf16Bytes(text);
    case TextEncoding::kUtf8WithMark:
      return std::string(kUtf8Mark) + ToUtf8(text);
    case TextEncoding::kWindows1252:
      if (std::string bytes = ToWindows1252(text); !bytes.empty()) return bytes;
      break;
    case TextEncoding::kUtf8:
      break;
  }
  return ToUtf8(text);
}

}  // namespace quill::host

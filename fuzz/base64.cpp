// Base64 against a decoder that goes unit by unit, as the definition reads.
#include "support/base64.h"

#include "fuzz/fuzz_target.h"

namespace quill::fuzz {
namespace {

using Bytes = std::vector<std::uint8_t>;

// By the definition's alphabet, without a table; 64 for what is not in it.
constexpr std::uint32_t ValueOf(char16_t unit) {
  if (unit >= u'A' && unit <= u'Z') return unit - u'A';
  if (unit >= u'a' && unit <= u'z') return unit - u'a' + 26U;
  if (unit >= u'0' && unit <= u'9') return unit - u'0' + 52U;
  return unit == u'+' ? 62 : unit == u'/' ? 63 : 64;
}

std::optional<Bytes> NaiveDecoding(TextView text) {
  if (text.size() % 4 != 0) return std::nullopt;
  if (text.ends_with(u'=')) text.remove_suffix(text.ends_with(u"==") ? 2 : 1);
  Bytes bytes;
  bytes.reserve(text.size() * 6 / 8);
  std::uint32_t bits = 0;
  int count = 0;  // of the bits not yet in `bytes`
  for (const char16_t unit : text) {
    const std::uint32_t value = ValueOf(unit);
    if (value == 64) return std::nullopt;
    bits = bits << 6 | value;
    count += 6;
    if (count < 8) continue;
    count -= 8;
    bytes.push_back(static_cast<std::uint8_t>(bits >> count));
  }
  return bytes;
}

}  // namespace

void TakeInput(std::string_view input) {
  const Text text = TextOf(input);
  const auto decoded = Attempt([&] { return DecodeBase64(text); });
  Claim(decoded == NaiveDecoding(text));
  const Bytes bytes(input.begin(), input.end());
  const Text encoded = EncodeBase64(bytes);
  Claim(encoded.size() == (input.size() + 2) / 3 * 4);
  Claim(NaiveDecoding(encoded) == bytes);
  if (decoded) {
    const CodePage& page = CodePage::Windows1252();
    Claim(Dec64(EncodeBase64(*decoded), page) == Dec64(text, page));
  }
}

}  // namespace quill::fuzz

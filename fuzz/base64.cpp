// Base64 against a decoder and an encoder that work bit by bit, as the definition reads.
#include "support/base64.h"

#include "fuzz/fuzz_target.h"

namespace quill::fuzz {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr TextView kAlphabet = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::optional<Bytes> NaiveDecoding(TextView text) {
  if (text.size() % 4 != 0) return std::nullopt;
  if (text.ends_with(u'=')) text.remove_suffix(text.ends_with(u"==") ? 2 : 1);
  Bytes bytes(text.size() * 6 / 8);
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::size_t value = kAlphabet.find(text[at]);
    if (value == TextView::npos) return std::nullopt;
    for (std::size_t bit = 6 * at; bit < 6 * at + 6 && bit / 8 < bytes.size(); ++bit) {
      const bool is_set = (value >> (5 - bit % 6) & 1) != 0;
      if (is_set) bytes[bit / 8] = static_cast<std::uint8_t>(bytes[bit / 8] | 0x80 >> bit % 8);
    }
  }
  return bytes;
}

}  // namespace
}  // namespace quill::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quill;
  using namespace quill::fuzz;
  const Text text = TextOf(data, size);
  const auto decoded = Attempt([&] {
    Bytes bytes = {7};
    DecodeBase64(text, bytes);
    Claim(bytes.front() == 7);
    bytes.erase(bytes.begin());
    return bytes;
  });
  Claim(decoded == NaiveDecoding(text));
  const Bytes bytes(data, data + size);
  Text encoded;
  EncodeBase64(bytes, encoded);
  Claim(encoded.size() == (size + 2) / 3 * 4);
  Claim(NaiveDecoding(encoded) == bytes);
  if (decoded) {
    const CodePage& page = CodePage::Windows1252();
    encoded.clear();
    EncodeBase64(*decoded, encoded);
    Claim(Dec64(encoded, page) == Dec64(text, page));
  }
  return 0;
}

// Compressed texts come back unchanged, and nothing else comes back at all.
#include "host/kit/compression.h"

#include <gtest/gtest.h>

#include "support/base64.h"
#include "tests/doubles/failure_of.h"

namespace quill::host {
namespace {

// Why unpacking is refused; empty when it is not.
std::string Refusal(TextView compressed, std::int32_t length) {
  const auto error = ErrorOf([&] { static_cast<void>(DecompressText(compressed, length)); });
  if (error.Is(ErrorNumber::kNone)) return {};
  EXPECT_TRUE(error.Is(ErrorNumber::kInvalidProcedureCall));
  return ToUtf8(error.description());
}

TEST(Compression, AnyTextComesBackUnchanged) {
  Text every_unit;
  for (std::uint32_t unit = 0; unit < 0x10000; ++unit) every_unit += static_cast<char16_t>(unit);
  for (const Text& text : {Text(), every_unit, Text(1'000'000, u'z')}) {
    const Text compressed = CompressText(text);
    for (const char16_t unit : compressed) {
      ASSERT_TRUE(unit > 0x20 && unit < 0x7F && unit != u'_' && unit != u'[') << int{unit};
    }
    ASSERT_EQ(DecompressText(compressed, static_cast<std::int32_t>(text.size())), text);
  }
  EXPECT_LT(CompressText(Text(1'000'000, u'z')).size(), 10'000u);
}

TEST(Compression, DamageIsToldAndNeverTakenForText) {
  const Text text = u"The quick brown fox jumps over the lazy dog, and over the lazy dog again.";
  const auto length = static_cast<std::int32_t>(text.size());
  const Text compressed = CompressText(text);
  const std::vector<std::uint8_t> packed = DecodeBase64(compressed);
  std::vector<std::uint8_t> with_more = packed;
  with_more.push_back(0);
  const struct {
    Text compressed;
    std::int32_t length;
    const char* told;
  } cases[] = {{compressed, length - 1, "holds more characters, not 72"},
               {compressed, length + 1, "holds 73 characters, not 74"},
               {compressed, 0, "not 0"},
               {compressed, -1, "-1"},
               {compressed, 2'147'483'647, "holds 73 characters"},
               {u"", 0, ""},
               {u"not base64 at all!", 5, ""},
               {u"\x4100\x4200\x4300\x4400", 5, ""},
               {compressed.substr(0, compressed.size() / 2 / 4 * 4), length, "end is missing"},
               {EncodeBase64(with_more), length, "follows its end"},
               // A bomb is bounded by the length given.
               {CompressText(Text(5'000'000, u'\0')), 100, "more"}};
  for (const auto& it : cases) {
    const std::string told = Refusal(it.compressed, it.length);
    EXPECT_FALSE(told.empty()) << it.told;
    EXPECT_NE(told.find(it.told), std::string::npos) << told;
  }
  for (std::size_t at = 0; at < packed.size(); ++at) {
    std::vector<std::uint8_t> damaged = packed;
    damaged[at] ^= 0x10;
    EXPECT_NE(Refusal(EncodeBase64(damaged), length), "") << "damage at byte " << at;
  }
}

}  // namespace
}  // namespace quill::host

// Compressed texts come back unchanged, and nothing else comes back at all.
#include "host/kit/compression.h"

#include <gtest/gtest.h>

#include <random>

#include "support/base64.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

std::int32_t Length(TextView text) {
  return static_cast<std::int32_t>(text.size());
}

// Why unpacking is refused; empty when it is not.
Text Refusal(TextView compressed, std::int32_t length) {
  try {
    static_cast<void>(DecompressText(compressed, length));
  } catch (const RuntimeError& error) {
    EXPECT_TRUE(error.Is(ErrorNumber::kInvalidProcedureCall));
    return Text(error.description());
  }
  return {};
}

bool Mentions(TextView text, TextView part) {
  return text.find(part) != TextView::npos;
}

TEST(Compression, AnyTextComesBackUnchanged) {
  Text every_unit;
  for (std::uint32_t unit = 0; unit < 0x10000; ++unit) {
    every_unit += static_cast<char16_t>(unit);
  }
  std::mt19937 random(7);
  Text noise;
  for (int count = 0; count < 20'000; ++count) noise += static_cast<char16_t>(random());

  for (const Text& text :
       {Text(), Text(1, u'\0'), Text(u"a_b|c-"), Text(u"\xD800"), Text(u"\xDC00\xD800", 2),
        Text(u"x\0y", 3), every_unit, noise, Text(1'000'000, u'z')}) {
    const Text compressed = CompressText(text);
    for (const char16_t unit : compressed) {
      ASSERT_TRUE(unit > 0x20 && unit < 0x7F && unit != u'_' && unit != u'[')
          << static_cast<int>(unit);
    }
    ASSERT_EQ(DecompressText(compressed, Length(text)), text);
  }
  EXPECT_LT(CompressText(Text(1'000'000, u'z')).size(), 10'000u);
}

TEST(Compression, TheLengthIsChecked) {
  const Text compressed = CompressText(u"twelve chars");
  EXPECT_TRUE(Mentions(Refusal(compressed, 11), u"holds more characters, not 11"));
  EXPECT_TRUE(Mentions(Refusal(compressed, 13), u"holds 12 characters, not 13"));
  EXPECT_TRUE(Mentions(Refusal(compressed, 0), u"not 0"));
  EXPECT_TRUE(Mentions(Refusal(compressed, -1), u"-1"));
  EXPECT_TRUE(Mentions(Refusal(compressed, 2'147'483'647), u"holds 12 characters"));
}

TEST(Compression, DamageIsToldAndNeverTakenForText) {
  const Text text = u"The quick brown fox jumps over the lazy dog, and over the lazy dog again.";
  const Text compressed = CompressText(text);
  EXPECT_FALSE(Refusal(u"", 0).empty());
  EXPECT_FALSE(Refusal(u"xyz", 5).empty());
  EXPECT_FALSE(Refusal(u"not base64 at all!", 5).empty());
  EXPECT_FALSE(Refusal(u"\x4100\x4200\x4300\x4400", 5).empty());
  EXPECT_TRUE(Mentions(Refusal(compressed.substr(0, compressed.size() / 2 / 4 * 4), Length(text)),
                       u"end is missing"));

  std::vector<std::uint8_t> packed;
  DecodeBase64(compressed, packed);
  for (std::size_t at = 0; at < packed.size(); ++at) {
    std::vector<std::uint8_t> damaged = packed;
    damaged[at] ^= 0x10;
    Text encoded;
    EncodeBase64(damaged, encoded);
    EXPECT_FALSE(Refusal(encoded, Length(text)).empty()) << "damage at byte " << at;
  }
  packed.push_back(0);
  Text with_more;
  EncodeBase64(packed, with_more);
  EXPECT_TRUE(Mentions(Refusal(with_more, Length(text)), u"follows its end"));
}

TEST(Compression, ABombIsBoundedByTheLengthGiven) {
  const Text bomb = CompressText(Text(50'000'000, u'\0'));
  EXPECT_TRUE(Mentions(Refusal(bomb, 100), u"more"));
}

}  // namespace
}  // namespace quill::host

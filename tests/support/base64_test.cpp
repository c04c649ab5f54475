#include "support/base64.h"

#include <gtest/gtest.h>

#include <random>

#include "host/headless/headless_host.h"
#include "tests/doubles/failure_of.h"

namespace quill {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr TextView kAlphabet = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Bit by bit, as the definition reads.
Text ReferenceEncoding(const Bytes& bytes) {
  Text result;
  for (std::size_t bit = 0; bit < 8 * bytes.size(); bit += 6) {
    unsigned value = 0;
    for (std::size_t i = bit; i < bit + 6; ++i) {
      const unsigned byte = i / 8 < bytes.size() ? bytes[i / 8] : 0;
      value = 2 * value + ((byte >> (7 - i % 8)) & 1);
    }
    result += kAlphabet[value];
  }
  while (result.size() % 4 != 0) result += u'=';
  return result;
}

class Base64Test : public testing::Test {
 protected:
  Text Encode(TextView text) { return Enc64(text, page, host.module.reporter); }
  Text Decode(TextView encoded) { return Dec64(encoded, page); }

  const CodePage& page = CodePage::Windows1252();
  host::HeadlessHost host;
};

TEST_F(Base64Test, WhatNoByteIsIsAQuestionMarkAndUnusedBitsDoNotCount) {
  EXPECT_EQ(Encode(u"\u0416"), u"Pw==");
  EXPECT_EQ(Decode(u"TR=="), u"M");
  EXPECT_EQ(Decode(u"TWF="), u"Ma");
}

TEST_F(Base64Test, EveryLengthAgreesWithTheDefinitionBothWays) {
  std::mt19937 random(20);
  for (std::size_t n = 0; n <= 201; ++n) {
    const std::size_t length = n <= 200 ? n : 10'001;
    for (const unsigned highest : {0x7FU, 0xFFU}) {
      Bytes bytes(length);
      for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random() & highest);
      const Text encoded = ReferenceEncoding(bytes);
      Text text;
      for (const std::uint8_t byte : bytes) text += page.ToUnit(byte);
      SCOPED_TRACE(length);

      ASSERT_EQ(Encode(text), encoded);
      ASSERT_EQ(Decode(encoded), text);
      Text room(encoded.size(), u'*');
      Enc64To(text, page, room.data());
      ASSERT_EQ(room, encoded);
      // What lies right behind the room stays.
      room.assign(Dec64Room(encoded.size()) + 1, u'*');
      ASSERT_EQ(Dec64To(encoded, page, room.data()), length);
      ASSERT_EQ(room.back(), u'*');
      ASSERT_EQ(room.substr(0, length), text);
      ASSERT_EQ(EncodeBase64(bytes), encoded);
      ASSERT_EQ(DecodeBase64(encoded), bytes);
    }
  }
  EXPECT_TRUE(host.toolkit.messages().empty());
}

TEST_F(Base64Test, MalformedTextsFailWithWhatIsWrong) {
  const Text long_text(4096, u'A');
  const std::pair<Text, TextView> cases[] = {
      {u"T", u"Base64 text: the length 1 is not a multiple of 4"},
      {u"TW u", u"Base64 text: the character U+0020 at position 3 is not in the alphabet"},
      {u"TWFu\r\nTQ", u"Base64 text: the character U+000D at position 5 is not in the alphabet"},
      {u"TWF-", u"Base64 text: the character U+002D at position 4 is not in the alphabet"},
      {Text(u"TW\0u", 4),
       u"Base64 text: the character U+0000 at position 3 is not in the alphabet"},
      // The low byte alone would be a letter.
      {u"TW\u0141u", u"Base64 text: the character U+0141 at position 3 is not in the alphabet"},
      {u"\uFF21W==", u"Base64 text: the character U+FF21 at position 1 is not in the alphabet"},
      {u"TW=u", u"Base64 text: \"=\" at position 3, before the end"},
      {u"T===", u"Base64 text: \"=\" at position 2, before the end"},
      {u"TQ==TWFu", u"Base64 text: \"=\" at position 3, before the end"},
      {long_text + u"TW*=",
       u"Base64 text: the character U+002A at position 4099 is not in the alphabet"},
  };
  for (const auto& [encoded, description] : cases) {
    const auto expect_failure = [&](const auto& decode) {
      const RuntimeError error = ErrorOf(decode);
      EXPECT_TRUE(error.Is(ErrorNumber::kInvalidProcedureCall)) << ToUtf8(encoded);
      EXPECT_EQ(error.description(), description);
    };
    expect_failure([&] { (void)Decode(encoded); });
    expect_failure([&] { (void)DecodeBase64(encoded); });
    Text room(Dec64Room(encoded.size()), u'*');
    expect_failure([&] { (void)Dec64To(encoded, page, room.data()); });
  }
}

TEST_F(Base64Test, EveryUnitOutsideTheAlphabetIsRefusedAtEveryPlace) {
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    if (unit < 0x80 && (kAlphabet.find(static_cast<char16_t>(unit)) != TextView::npos)) continue;
    for (std::size_t place = 0; place < 8; ++place) {
      if (unit == u'=' && place == 7) continue;
      Text encoded = u"QUJDREVG";
      encoded[place] = static_cast<char16_t>(unit);
      ASSERT_THROW((void)Decode(encoded), RuntimeError) << unit << " at " << place;
    }
    // Exceptions are slow, so the middle of the range is sampled.
    if (unit > 0x300 && unit < 0xFE00) unit += 0xFA;
  }
}

}  // namespace
}  // namespace quill

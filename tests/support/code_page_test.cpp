#include "support/code_page.h"

#include <gtest/gtest.h>

#include "support/runtime_error.h"

namespace quill {
namespace {

TEST(CodePageTest, EveryByteSurvivesBothWays) {
  const CodePage& page = CodePage::Windows1252();
  Text text;
  for (unsigned byte = 0; byte < 256; ++byte) {
    text += page.ToUnit(byte & 0xFF);
    EXPECT_EQ(page.ToByte(text.back()), byte);
  }
  EXPECT_EQ(TextView(text).substr(0x80, 32),
            u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021"
            u"\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
            u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014"
            u"\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178");
  for (unsigned byte = 0xA0; byte < 256; ++byte) EXPECT_EQ(page.ToUnit(byte & 0xFF), byte);
}

TEST(CodePageTest, UnknownUnitsBecomeQuestionMarks) {
  const CodePage& page = CodePage::Windows1252();
  int known = 0;
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const std::uint8_t byte = page.ToByte(static_cast<char16_t>(unit));
    if (page.ToUnit(byte) == unit) {
      ++known;
    } else {
      ASSERT_EQ(byte, '?') << unit;
    }
  }
  EXPECT_EQ(known, 256);
}

TEST(CodePageTest, OtherPagesWorkAndBadOnesAreRefused) {
  std::array<char16_t, 256> units{};
  for (std::size_t byte = 0; byte < 128; ++byte) units[byte] = static_cast<char16_t>(byte);
  for (std::size_t byte = 128; byte < 255; ++byte) {
    units[byte] = static_cast<char16_t>(byte * 0x101);
  }
  units[255] = u'?';
  units[254] = units[253];
  const CodePage page(units);
  EXPECT_EQ(page.ToByte(units[254]), 253) << "of two bytes for a unit the first";
  for (unsigned byte = 0; byte < 254; ++byte)
    EXPECT_EQ(page.ToByte(page.ToUnit(byte & 0xFF)), byte);
  EXPECT_EQ(page.ToByte(u'?'), '?');

  units[u'A'] = u'B';
  EXPECT_THROW(CodePage{units}, RuntimeError);
}

}  // namespace
}  // namespace quill

#include "support/code_page.h"

#include <gtest/gtest.h>

#include "support/runtime_error.h"

namespace quill {
namespace {

TEST(CodePageTest, EveryByteSurvivesBothWays) {
  const CodePage& page = CodePage::Windows1252();
  std::vector<std::uint8_t> bytes;
  for (int byte = 0; byte < 256; ++byte) bytes.push_back(static_cast<std::uint8_t>(byte));
  Text text = u"<";
  page.AppendText(bytes, text);
  std::vector<std::uint8_t> back;
  page.AppendBytes(TextView(text).substr(1), back);
  EXPECT_EQ(back, bytes);

  EXPECT_EQ(TextView(text).substr(1 + 0x80, 8),
            u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021");
  EXPECT_EQ(TextView(text).substr(1 + 0x98),
            u"\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178"
            u"\u00A0\u00A1\u00A2\u00A3\u00A4\u00A5\u00A6\u00A7"
            u"\u00A8\u00A9\u00AA\u00AB\u00AC\u00AD\u00AE\u00AF"
            u"\u00B0\u00B1\u00B2\u00B3\u00B4\u00B5\u00B6\u00B7"
            u"\u00B8\u00B9\u00BA\u00BB\u00BC\u00BD\u00BE\u00BF"
            u"\u00C0\u00C1\u00C2\u00C3\u00C4\u00C5\u00C6\u00C7"
            u"\u00C8\u00C9\u00CA\u00CB\u00CC\u00CD\u00CE\u00CF"
            u"\u00D0\u00D1\u00D2\u00D3\u00D4\u00D5\u00D6\u00D7"
            u"\u00D8\u00D9\u00DA\u00DB\u00DC\u00DD\u00DE\u00DF"
            u"\u00E0\u00E1\u00E2\u00E3\u00E4\u00E5\u00E6\u00E7"
            u"\u00E8\u00E9\u00EA\u00EB\u00EC\u00ED\u00EE\u00EF"
            u"\u00F0\u00F1\u00F2\u00F3\u00F4\u00F5\u00F6\u00F7"
            u"\u00F8\u00F9\u00FA\u00FB\u00FC\u00FD\u00FE\u00FF");
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
  // Every unit with a high half of its own, the worst case for the reverse table.
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

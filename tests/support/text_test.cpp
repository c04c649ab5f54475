#include "support/text.h"

#include <gtest/gtest.h>

#include <limits>

namespace quill {
namespace {

using Pieces = std::vector<TextView>;

TEST(TextTest, OnlyBlanksAreTrimmed) {
  EXPECT_EQ(TrimBlanks(u"  a b  "), u"a b");
  EXPECT_EQ(TrimBlanks(u"    "), u"");
  EXPECT_EQ(TrimBlanks(u" \t\u00A0 "), u"\t\u00A0");
  EXPECT_TRUE(IsBlank(u""));
  EXPECT_TRUE(IsBlank(u"  "));
  EXPECT_FALSE(IsBlank(u" \r\n"));
}

TEST(TextTest, DecimalCoversTheWholeRange) {
  EXPECT_EQ(Decimal(0), u"0");
  EXPECT_EQ(Decimal(-10), u"-10");
  EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
  EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::max()), u"9223372036854775807");
}

TEST(TextTest, SplitGivesEveryPieceEvenTheEmptyOnes) {
  EXPECT_EQ(Split(u"", u"_"), (Pieces{u""}));
  EXPECT_EQ(Split({}, u"_"), (Pieces{u""}));
  EXPECT_EQ(Split(u"abc", u"_"), (Pieces{u"abc"}));
  EXPECT_EQ(Split(u"_a__b_", u"_"), (Pieces{u"", u"a", u"", u"b", u""}));
  EXPECT_EQ(Split(u"0[-]1[-]M.BMS", u"[-]"), (Pieces{u"0", u"1", u"M.BMS"}));
  EXPECT_EQ(Split(u"[[-][-[-]-]", u"[-]"), (Pieces{u"[", u"[-", u"-]"}));
  EXPECT_EQ(Split(u"aaaaa", u"aa"), (Pieces{u"", u"", u"a"}));
  EXPECT_EQ(Split(TextView(u"a\0b", 3), TextView(u"\0", 1)), (Pieces{u"a", u"b"}));
}

TEST(TextTest, SeparatorsAreFoundAtEveryPlaceAndNothingElseIs) {
  // Units that share a byte with the separator, or differ from it in the highest or lowest bit.
  const Text others = u"\u5F5F\u5F00\u005E\u0060\u805F\u015F\uFFFF";
  for (std::size_t length = 0; length < 40; ++length) {
    Text text;
    while (text.size() < length) text += others[text.size() % others.size()];
    EXPECT_EQ(Split(text, u"_").size(), 1U);
    for (std::size_t first = 0; first < length; ++first) {
      for (std::size_t second = first + 1; second < length; ++second) {
        Text separated = text;
        separated[first] = separated[second] = u'_';
        const TextView view = separated;
        ASSERT_EQ(Split(view, u"_"),
                  (Pieces{view.substr(0, first), view.substr(first + 1, second - first - 1),
                          view.substr(second + 1)}));
      }
    }
  }
}

TEST(TextTest, ReplaceAllGoesOnBehindWhatItReplaced) {
  EXPECT_EQ(ReplaceAll(u"aaa", u"aa", u"b"), u"ba");
  EXPECT_EQ(ReplaceAll(u"abc", u"x", u"y"), u"abc");
  EXPECT_EQ(ReplaceAll(u"x", u"x", u"xx"), u"xx");
  EXPECT_EQ(ReplaceAll(u"", u"x", u"y"), u"");
  EXPECT_EQ(ReplaceAll(u"-x-X-", u"x", u""), u"--X-");
}

TEST(TextTest, LetterCaseFollowsAsciiAndLatin1) {
  EXPECT_EQ(ToLower(u"AZ[@\u00C0\u00DE\u00D7\u0100\u0410"), u"az[@\u00E0\u00FE\u00D7\u0100\u0410");
  EXPECT_EQ(ToUpper(u"az{`\u00E0\u00FE\u00F7\u00DF\u00FF\u0131"),
            u"AZ{`\u00C0\u00DE\u00F7\u00DF\u00FF\u0131");
  EXPECT_TRUE(EqualIgnoringCase(u"IsSuper\u00C4", u"ISsUPER\u00E4"));
  EXPECT_FALSE(EqualIgnoringCase(u"abc", u"abcd"));
  EXPECT_FALSE(EqualIgnoringCase(u"@", u"`"));
}

TEST(TextTest, EveryCodePointSurvivesUtf8) {
  for (std::uint32_t point = 0; point <= 0x10FFFF; ++point) {
    if (point >= 0xD800 && point <= 0xDFFF) continue;
    Text text;
    if (point < 0x10000) {
      text = static_cast<char16_t>(point);
    } else {
      text = {static_cast<char16_t>(0xD7C0 + (point >> 10)),
              static_cast<char16_t>(0xDC00 + (point & 0x3FF))};
    }
    ASSERT_EQ(FromUtf8(ToUtf8(text)), text) << point;
  }
  EXPECT_EQ(ToUtf8(u"A\u00E9\u20AC\U0001F600"), "A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST(TextTest, IllFormedTextAndUtf8BecomeReplacementCharacters) {
  const char16_t lone[] = {0xD800, u'a', 0xDC00, 0xD801, 0xD801, 0xDC01, 0xDBFF};
  EXPECT_EQ(ToUtf8(TextView(lone, 7)),
            "\xEF\xBF\xBD"
            "a\xEF\xBF\xBD\xEF\xBF\xBD\xF0\x90\x90\x81\xEF\xBF\xBD");

  const std::pair<std::string_view, TextView> cases[] = {
      {"\x80", u"\uFFFD"},                                // continuation alone
      {"a\xC3", u"a\uFFFD"},                              // cut off
      {"\xE2\x82", u"\uFFFD"},                            // cut off late
      {"\xE2\x82z", u"\uFFFDz"},                          // broken by a letter
      {"\xC0\xAF", u"\uFFFD\uFFFD"},                      // overlong
      {"\xE0\x80\x80", u"\uFFFD\uFFFD\uFFFD"},            // overlong
      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},            // surrogate
      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond the last point
      {"\xF8\xFF", u"\uFFFD\uFFFD"},                      // no lead bytes
      {"\xF0\x9F\x98\xC3\xA9", u"\uFFFD\u00E9"},          // a good one after a broken one
  };
  for (const auto& [bytes, text] : cases) EXPECT_EQ(FromUtf8(bytes), text);
}

}  // namespace
}  // namespace quill

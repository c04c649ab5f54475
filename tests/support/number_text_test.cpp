#include "support/number_text.h"

#include <gtest/gtest.h>

#include "tests/doubles/failure_of.h"

namespace quill {
namespace {

constexpr std::int32_t kOverflow = 6;
constexpr std::int32_t kTypeMismatch = 13;

TEST(NumberTextTest, TakesOnlyPlainDecimalNumbers) {
  for (TextView text :
       {u"0", u"-1", u"+1", u"  12  ", u"\t5\r\n", u"1.5", u"-0.0", u"007", u"00.50"}) {
    EXPECT_TRUE(IsNumber(text)) << ToUtf8(text);
  }
  for (TextView text :
       {u"",       u"   ", u"-",   u"+",    u".",    u".5",    u"5.",      u"1.5.2",
        u"--1",    u"+-1", u"- 1", u"1 2",  u"1e3",  u"1,000", u"1,5",     u"&H10",
        u"0x10",   u"$5",  u"5%",  u"(5)",  u"1\t2", u"\r\n",  u"\u00A05", u"\u0665",
        u"\uFF15", u"inf", u"nan", u"1.-5", u"1. 5"}) {
    EXPECT_FALSE(IsNumber(text)) << ToUtf8(text);
    EXPECT_EQ(FailureOf([&] { (void)ToInt16(text); }), kTypeMismatch) << ToUtf8(text);
    EXPECT_EQ(FailureOf([&] { (void)ToInt32(text); }), kTypeMismatch) << ToUtf8(text);
    EXPECT_EQ(FailureOf([&] { (void)ToTruth(text); }), kTypeMismatch) << ToUtf8(text);
    EXPECT_EQ(FailureOf([&] { (void)IsGreaterThan(text, 0); }), kTypeMismatch) << ToUtf8(text);
  }
  EXPECT_FALSE(IsNumber(TextView(u"5\0", 2)));
}

TEST(NumberTextTest, RoundsHalfToEven) {
  const std::pair<TextView, int> cases[] = {
      {u"2.5", 2},     {u"3.5", 4},        {u"-0.5", 0},    {u"0.5", 0},      {u"1.5", 2},
      {u"-1.5", -2},   {u"-2.5", -2},      {u"2.49999", 2}, {u"-7", -7},      {u"2.500", 2},
      {u"2.50001", 3}, {u"-2.50001", -3},  {u"0.49", 0},    {u"9.9", 10},     {u"+12", 12},
      {u"-0.50", 0},   {u" 0099.5 ", 100}, {u"98.5", 98},   {u"-99.51", -100}};
  for (const auto& [text, value] : cases) {
    EXPECT_EQ(ToInt16(text), value) << ToUtf8(text);
    EXPECT_EQ(ToInt32(text), value) << ToUtf8(text);
  }
}

TEST(NumberTextTest, RangeIsThatOfTheRoundedValue) {
  EXPECT_EQ(ToInt16(u"32767.4999999999999999999999"), 32767);
  EXPECT_EQ(ToInt16(u"-32768.5"), -32768);
  EXPECT_EQ(ToInt32(u"2147483647.4"), 2147483647);
  EXPECT_EQ(ToInt32(u"-2147483648.5"), -2147483647 - 1);
  for (TextView text :
       {u"32767.5", u"32768", u"-32768.50000001", u"-32769", u"99999999999999999"}) {
    EXPECT_EQ(FailureOf([&] { (void)ToInt16(text); }), kOverflow) << ToUtf8(text);
  }
  for (TextView text : {u"2147483647.5", u"2147483648", u"-2147483649", u"4294967297",
                        u"18446744073709551617", u"10000000000"}) {
    EXPECT_EQ(FailureOf([&] { (void)ToInt32(text); }), kOverflow) << ToUtf8(text);
  }
}

TEST(NumberTextTest, AnyCountOfDigitsIsExact) {
  const Text zeros(100'000, u'0');
  const Text nines(100'000, u'9');
  EXPECT_EQ(ToInt16(zeros + u"2.5" + zeros), 2);
  EXPECT_EQ(ToInt16(zeros + u"2.5" + zeros + u"1"), 3);
  EXPECT_EQ(ToInt16(u"2.4" + nines), 2);
  EXPECT_EQ(FailureOf([&] { (void)ToInt32(nines); }), kOverflow);
  EXPECT_EQ(FailureOf([&] { (void)ToInt32(u"-" + nines); }), kOverflow);
  EXPECT_TRUE(IsGreaterThan(nines, 2147483647));
  EXPECT_FALSE(IsGreaterThan(u"-" + nines, -2147483647));
  EXPECT_TRUE(IsGreaterThan(u"0." + zeros + u"1", 0));
  EXPECT_TRUE(ToTruth(u"0." + zeros + u"1"));
  EXPECT_FALSE(ToTruth(u"-" + zeros + u"." + zeros));
}

TEST(NumberTextTest, ComparesExactlyWithoutRounding) {
  for (TextView text : {u"0.1", u"1", u"0.5", u"2147483648"}) EXPECT_TRUE(IsGreaterThan(text, 0));
  for (TextView text : {u"0", u"-0", u"-0.5", u"-3", u"0.000"})
    EXPECT_FALSE(IsGreaterThan(text, 0));
  EXPECT_TRUE(IsGreaterThan(u"-0.5", -1));
  EXPECT_TRUE(IsGreaterThan(u"-1.5", -2));
  EXPECT_FALSE(IsGreaterThan(u"-1.5", -1));
  EXPECT_FALSE(IsGreaterThan(u"-1", -1));
  EXPECT_TRUE(IsGreaterThan(u"65535.01", 65535));
  EXPECT_FALSE(IsGreaterThan(u"65535", 65535));
}

TEST(NumberTextTest, TruthIsANumberOrAWord) {
  for (TextView text : {u"1", u"-1", u"0.01", u"true", u"TRUE", u" True\r\n", u"99999999999"}) {
    EXPECT_TRUE(ToTruth(text)) << ToUtf8(text);
  }
  for (TextView text : {u"0", u"-0.00", u" 000 ", u"false", u"False"}) {
    EXPECT_FALSE(ToTruth(text)) << ToUtf8(text);
  }
  for (TextView text : {u"yes", u"truex", u"tru", u"on"}) {
    EXPECT_EQ(FailureOf([&] { (void)ToTruth(text); }), kTypeMismatch);
  }
}

}  // namespace
}  // namespace quill

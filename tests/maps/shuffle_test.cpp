// The shuffle's arithmetic, and that every order is equally likely: a seeded chi-square test that a
// biased draw fails.
#include "maps/shuffle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "support/runtime_error.h"

namespace quill {
namespace {

std::vector<SelectedMap> Rotation(int count) {
  std::vector<SelectedMap> maps;
  for (int i = 0; i < count; ++i) maps.push_back({Decimal(i), u"F", i, i % 2 == 1});
  return maps;
}

TEST(Shuffle, EveryOrderIsEquallyLikely) {
  RandomSource random(20'240'517);
  const std::vector<SelectedMap> maps = Rotation(5);
  std::map<Text, int> seen;
  for (int round = 0; round < 120 * 500; ++round) {
    Text order;
    for (const SelectedMap& map : Shuffled(maps, std::ref(random))) order += map.name;
    ++seen[order];
  }
  double chi = (120 - static_cast<double>(seen.size())) * 500;
  for (const auto& [order, count] : seen) chi += (count - 500.0) * (count - 500.0) / 500;
  // What chance exceeds about once in 30,000 times with 119 degrees of freedom.
  EXPECT_LT(chi, 190);
}

TEST(Shuffle, DrawsByTheGivenArithmetic) {
  const auto order = [](int count, std::vector<float> draws) {
    std::size_t next = 0;
    Text names;
    for (const SelectedMap& map : Shuffled(Rotation(count), [&] { return draws.at(next++); })) {
      names += map.name;
    }
    EXPECT_EQ(next, draws.size());
    return names;
  };
  EXPECT_EQ(order(4, {0, 0, 0, 0}), u"0123");
  const float largest = 0x1.fffffep-1F;  // the largest below 1
  EXPECT_EQ(order(4, {largest, largest, largest, largest}), u"3210");
  EXPECT_EQ(order(4, {0.5F, 0.25F, 0.5F, 0.9F}), u"2031");
  // A step below a boundary stays below it: in single precision r * 3 + 1 would round up to 2.
  const float below_third = std::nextafter(1.0F / 3.0F, 0.0F);
  ASSERT_EQ(below_third * 3.0F + 1.0F, 2.0F);
  EXPECT_EQ(order(3, {below_third, 0, 0}), u"012");
}

TEST(Shuffle, KeepsEveryRecordWholeAndFailsOnABadDraw) {
  std::vector<SelectedMap> maps = Rotation(255);
  maps[7] = maps[9];
  RandomSource random(1);
  const std::vector<SelectedMap> shuffled = Shuffled(maps, std::ref(random));
  EXPECT_NE(shuffled, maps);
  EXPECT_TRUE(std::ranges::is_permutation(shuffled, maps));
  EXPECT_TRUE(Shuffled({}, std::ref(random)).empty());
  for (const float bad : {1.0F, -0.5F, std::nanf("")}) {
    EXPECT_THROW((void)Shuffled(maps, [&] { return bad; }), RuntimeError);
  }
}

TEST(RandomSource, StaysBelowOneAndFollowsItsSeed) {
  RandomSource a(5);
  RandomSource again(5);
  RandomSource others[] = {RandomSource(6), RandomSource(5 + (std::uint64_t{1} << 32))};
  int same[2] = {};
  for (int i = 0; i < 100'000; ++i) {
    const float r = a();
    ASSERT_TRUE(r >= 0.0F && r < 1.0F);
    ASSERT_EQ(r, again());
    for (int other : {0, 1}) same[other] += r == others[other]();
  }
  EXPECT_LT(same[0], 100);
  EXPECT_LT(same[1], 100);
}

}  // namespace
}  // namespace quill

// The shuffle's arithmetic, and that every order is equally likely: a seeded chi-square test that a
// biased draw fails.
#include "maps/shuffle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>

#include "support/runtime_error.h"

namespace quill {
namespace {

std::vector<SelectedMap> Rotation(int count) {
  std::vector<SelectedMap> maps;
  for (int i = 0; i < count; ++i) maps.push_back({Decimal(i), u"F", i, i % 2 == 1});
  return maps;
}

// The largest chi-square that chance exceeds about once in 30,000 times (z = 4).
double Limit(int degrees) {
  const double d = degrees;
  const double base = 1 - 2 / (9 * d) + 4 * std::sqrt(2 / (9 * d));
  return d * base * base * base;
}

using Shuffle = std::function<std::vector<SelectedMap>(const std::vector<SelectedMap>&)>;

double ChiSquareOfOrders(const Shuffle& shuffle) {
  const std::vector<SelectedMap> maps = Rotation(5);
  constexpr int kRounds = 120 * 500;
  std::map<Text, int> seen;
  for (int round = 0; round < kRounds; ++round) {
    Text order;
    for (const SelectedMap& map : shuffle(maps)) order += map.name;
    ++seen[order];
  }
  double chi = 0;
  for (const auto& [order, count] : seen) chi += (count - 500.0) * (count - 500.0) / 500;
  return chi + (120 - static_cast<double>(seen.size())) * 500;
}

// Where each of 255 maps ends: a table of 255 * 255 counts. Its rows and columns have fixed sums,
// so that the sum of squares is too large by 255 / 254 for its 254 * 254 degrees of freedom.
double ChiSquareOfPositions(const Shuffle& shuffle) {
  constexpr std::size_t kMaps = 255;
  constexpr int kRounds = 255 * 20;
  const std::vector<SelectedMap> maps = Rotation(kMaps);
  std::vector<int> counts(kMaps * kMaps);
  for (int round = 0; round < kRounds; ++round) {
    const std::vector<SelectedMap> shuffled = shuffle(maps);
    for (std::size_t at = 0; at < kMaps; ++at) {
      ++counts[static_cast<std::size_t>(shuffled[at].game_type) * kMaps + at];
    }
  }
  double chi = 0;
  for (const int count : counts) chi += (count - 20.0) * (count - 20.0) / 20;
  return chi * (kMaps - 1) / kMaps;
}

constexpr int kOrderDegrees = 119;
constexpr int kPositionDegrees = 254 * 254;

TEST(Shuffle, EveryOrderAndEveryPositionIsEquallyLikely) {
  RandomSource random(20'240'517);
  const Shuffle shuffle = [&](const auto& maps) { return Shuffled(maps, std::ref(random)); };
  EXPECT_LT(ChiSquareOfOrders(shuffle), Limit(kOrderDegrees));
  EXPECT_LT(ChiSquareOfPositions(shuffle), Limit(kPositionDegrees));
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

TEST(Shuffle, KeepsEveryRecordWholeAndTheOldOrderOnFailure) {
  std::vector<SelectedMap> maps = Rotation(255);
  maps[7] = maps[9];
  RandomSource random(1);
  std::vector<SelectedMap> shuffled = Shuffled(maps, std::ref(random));
  EXPECT_NE(shuffled, maps);
  const auto by_name = [](const SelectedMap& a, const SelectedMap& b) { return a.name < b.name; };
  std::vector<SelectedMap> sorted = maps;
  std::sort(sorted.begin(), sorted.end(), by_name);
  std::sort(shuffled.begin(), shuffled.end(), by_name);
  EXPECT_EQ(shuffled, sorted);

  EXPECT_TRUE(Shuffled({}, std::ref(random)).empty());
  for (const float bad : {1.0F, -0.5F, std::nanf("")}) {
    EXPECT_THROW((void)Shuffled(maps, [&] { return bad; }), RuntimeError);
  }
}

TEST(RandomSource, StaysBelowOneAndFollowsItsSeed) {
  RandomSource a(5);
  RandomSource again(5);
  RandomSource b(6);
  RandomSource high(5 + (std::uint64_t{1} << 32));
  int same_as_b = 0;
  int same_as_high = 0;
  for (int i = 0; i < 100'000; ++i) {
    const float r = a();
    ASSERT_GE(r, 0.0F);
    ASSERT_LT(r, 1.0F);
    ASSERT_EQ(r, again());
    if (r == b()) ++same_as_b;
    if (r == high()) ++same_as_high;
  }
  EXPECT_LT(same_as_b, 100);
  EXPECT_LT(same_as_high, 100);
}

}  // namespace
}  // namespace quill

#include "maps/shuffle.h"

#include <bit>
#include <cmath>
#include <cstddef>

#include "support/runtime_error.h"

namespace quill {
namespace {

// The positions 1 to n, of which some have been taken: finds the k-th of the others in logarithmic
// time, so that the longest rotation that a file can hold is shuffled quickly too.
class PositionsLeft {
 public:
  explicit PositionsLeft(std::size_t count) : sums_(count + 1) {
    for (std::size_t at = 1; at <= count; ++at) sums_[at] = at & (~at + 1);
  }

  // Takes the `nth` (1-based) of those left and returns it.
  std::size_t Take(std::size_t nth) {
    std::size_t before = 0;  // positions that cannot be it
    for (std::size_t step = std::bit_floor(sums_.size() - 1); step != 0; step /= 2) {
      if (before + step < sums_.size() && sums_[before + step] < nth) {
        before += step;
        nth -= sums_[before];
      }
    }
    const std::size_t taken = before + 1;
    for (std::size_t at = taken; at < sums_.size(); at += at & (~at + 1)) --sums_[at];
    return taken;
  }

 private:
  // A binary indexed tree: how many are left in the stretch that ends at each position and is as
  // long as that position's lowest bit.
  std::vector<std::size_t> sums_;
};

}  // namespace

RandomSource::RandomSource(std::uint64_t seed) {
  std::seed_seq words{static_cast<std::uint32_t>(seed), static_cast<std::uint32_t>(seed >> 32)};
  engine_.seed(words);
}

float RandomSource::operator()() {
  // The 24 bits that a single-precision number holds, so that the result never rounds up to 1.
  return static_cast<float>(engine_() >> 8) * 0x1p-24F;
}

std::vector<SelectedMap> Shuffled(const std::vector<SelectedMap>& maps,
                                  const std::function<float()>& draw) {
  std::vector<SelectedMap> shuffled;
  shuffled.reserve(maps.size());
  PositionsLeft left(maps.size());
  for (std::size_t remaining = maps.size(); remaining != 0; --remaining) {
    const double r = draw();
    const double index = std::floor(r * static_cast<double>(remaining) + 1.0);
    if (!(index >= 1.0 && index <= static_cast<double>(remaining))) {
      throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
    }
    const std::size_t position = left.Take(static_cast<std::size_t>(index));
    shuffled.push_back(maps[position - 1]);
  }
  return shuffled;
}

}  // namespace quill

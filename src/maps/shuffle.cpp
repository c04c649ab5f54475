#include "maps/shuffle.h"

#include <cmath>
#include <numeric>

#include "support/runtime_error.h"

namespace quill {

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
  std::vector<int> left(maps.size());  // the rows that are not yet placed
  std::iota(left.begin(), left.end(), 0);
  while (!left.empty()) {
    const double r = draw();
    const auto remaining = static_cast<double>(left.size());
    const double index = std::floor(r * remaining + 1.0);
    if (!(index >= 1.0 && index <= remaining)) {
      throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
    }
    const auto drawn = left.begin() + static_cast<std::ptrdiff_t>(index) - 1;
    shuffled.push_back(maps[static_cast<std::size_t>(*drawn)]);
    left.erase(drawn);
  }
  return shuffled;
}

}  // namespace quill

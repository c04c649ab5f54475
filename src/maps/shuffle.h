// Puts a rotation into a random order, each order being equally likely.
#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <vector>

#include "maps/selected_map_list.h"

namespace quill {

// A pseudo-random generator in [0, 1), single precision.
class RandomSource {
 public:
  explicit RandomSource(std::uint64_t seed) : engine_(seed) {}
  // The 24 bits that a single-precision number holds, so that the result never rounds up to 1.
  [[nodiscard]] float operator()() { return static_cast<float>(engine_() >> 40) * 0x1p-24F; }

 private:
  std::mt19937_64 engine_;
};

// The maps in a new order: step by step one of those not yet placed is drawn and placed behind the
// others. `draw` yields r with 0 <= r < 1; the map taken is the one at the largest whole number not
// greater than r * remaining + 1 (1-based, in double precision).
[[nodiscard]] std::vector<SelectedMap> Shuffled(const std::vector<SelectedMap>& maps,
                                                const std::function<float()>& draw);

}  // namespace quill

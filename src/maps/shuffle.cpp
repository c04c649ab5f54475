// Shuffles a rotation by drawing one row after the other.
#include "maps/shuffle.h"

#include <cmath>
#include <numeric>

#include "support/runtime_error.h"

namespace quill {

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
    // Asked this way round, it also refuses a draw that is not a number.
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

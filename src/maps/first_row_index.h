// Finds the first row of a list that has a given text, in constant time once it is built. It holds
// row numbers only, so that a list with its index can be copied and moved.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "support/text.h"

namespace quill {

class FirstRowIndex {
 public:
  // The text of a 0-based row that it was built for.
  using TextOfRow = std::function<TextView(int row)>;

  // Built for exactly `count` rows.
  [[nodiscard]] bool IsBuiltFor(int count) const noexcept { return count_ == count; }
  // On failure the index is unchanged.
  void Build(int count, const TextOfRow& text_of);
  void Clear() noexcept;

  // The first row with exactly this text; -1 when there is none.
  [[nodiscard]] int Find(TextView text, const TextOfRow& text_of) const;

 private:
  // A bucket, or a place in a chain, that holds no row.
  static constexpr int kNone = -1;

  std::vector<int> buckets_;  // the head of each chain; their count is a power of two, or 0
  std::vector<int> next_;     // by row
  int count_ = 0;
};

}  // namespace quill

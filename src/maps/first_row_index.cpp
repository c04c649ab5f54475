#include "maps/first_row_index.h"

#include <bit>

namespace quill {
namespace {

std::size_t BucketOf(TextView text, const std::vector<int>& buckets) noexcept {
  return std::hash<TextView>{}(text) & (buckets.size() - 1);
}

}  // namespace

void FirstRowIndex::Build(int count, const TextOfRow& text_of) {
  FirstRowIndex built;
  const auto rows = static_cast<std::size_t>(count);
  built.buckets_.assign(std::bit_ceil(rows + 1), kNone);
  built.next_.assign(rows, kNone);
  for (int row = 0; row < count; ++row) {
    const TextView text = text_of(row);
    // A text that is there already keeps its first row, and keeps its chain short.
    if (built.Find(text, text_of) != kNone) continue;
    int& head = built.buckets_[BucketOf(text, built.buckets_)];
    built.next_[static_cast<std::size_t>(row)] = head;
    head = row;
  }
  built.count_ = count;
  *this = std::move(built);
}

void FirstRowIndex::Clear() noexcept {
  buckets_.clear();
  next_.clear();
  count_ = 0;
}

int FirstRowIndex::Find(TextView text, const TextOfRow& text_of) const {
  if (buckets_.empty()) return kNone;
  int row = buckets_[BucketOf(text, buckets_)];
  while (row != kNone && text_of(row) != text) row = next_[static_cast<std::size_t>(row)];
  return row;
}

}  // namespace quill

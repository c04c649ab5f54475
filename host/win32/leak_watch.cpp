#include "host/win32/leak_watch.h"

#include <algorithm>

namespace quill::host {
namespace {

constexpr int kSamples = 10;

}  // namespace

LeakWatch::LeakWatch(int cycles) : cycles_(cycles) {
  samples_.reserve(kSamples);
  (void)CountResources();  // what the first count leaves behind is no leak
}

void LeakWatch::CycleDone() {
  ++done_;
  // The next of the equal steps after the one that warms up.
  const auto next = static_cast<long long>(samples_.size()) + 1;
  if (samples_.size() < kSamples && done_ * static_cast<long long>(kSamples) >= next * cycles_) {
    samples_.push_back(CountResources());
  }
}

std::vector<LeakWatch::Course> LeakWatch::Courses() const {
  const auto middle = samples_.begin() + static_cast<std::ptrdiff_t>(samples_.size() / 2);
  std::vector<Course> courses;
  for (std::size_t at = 0; at < kResourceCount; ++at) {
    const auto is_less = [at](const ResourceCounts& a, const ResourceCounts& b) {
      return a[at] < b[at];
    };
    const auto is_not_less = [&](const auto& a, const auto& b) { return !is_less(a, b); };
    const auto resource = static_cast<Resource>(at);
    const long before = (*std::min_element(samples_.begin(), middle, is_less))[at];
    const long after = (*std::min_element(middle, samples_.end(), is_less))[at];
    bool grew = after > before;
    if (resource == Resource::kHeapBlocks || resource == Resource::kHeapBytes) {
      const long blocks = 10 + std::min(cycles_ / 25, 5);
      const long allowance = resource == Resource::kHeapBytes ? blocks * 800 : blocks;
      const bool rises = std::adjacent_find(middle, samples_.end(), is_not_less) == samples_.end();
      grew = grew && (rises || after - before > allowance);
    }
    courses.push_back({resource, before, after, grew});
  }
  return courses;
}

}  // namespace quill::host

#include "host/win32/leak_watch.h"

#include <algorithm>

namespace quill::host {
namespace {

constexpr int kSamples = 10;

}  // namespace

LeakWatch::LeakWatch(int cycles) : cycles_(cycles) {
  samples_.reserve(kSamples);
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
  const auto least = [](auto begin, auto end, std::size_t at) {
    long count = (*begin)[at];
    for (; begin != end; ++begin) count = std::min(count, (*begin)[at]);
    return count;
  };
  const auto middle = samples_.begin() + static_cast<std::ptrdiff_t>(samples_.size() / 2);
  std::vector<Course> courses;
  for (std::size_t at = 0; at < kResourceCount; ++at) {
    courses.push_back({static_cast<Resource>(at), least(samples_.begin(), middle, at),
                       least(middle, samples_.end(), at)});
  }
  return courses;
}

bool LeakWatch::Course::grew() const noexcept {
  return after > before;
}

}  // namespace quill::host

// Whether work that is repeated leaves something behind in this process.
#pragma once

#include <span>
#include <vector>

#include "support/text.h"

namespace quill::host {

struct Resource {
  TextView name;
  long (*count)();  // how much of it this process holds
  // Of a heap, which the system uses too: so much may be new for each of ten blocks, and for one in
  // each 25th cycle up to five, if the count does not rise each time. Of anything else nothing may.
  long allowance = 0;
};
[[nodiscard]] std::span<const Resource> Resources() noexcept;

class LeakWatch {
 public:
  // The first tenth of the cycles warms up: what the system keeps from then on is no leak.
  explicit LeakWatch(int cycles);

  // To be called after each cycle. Counts ten times in all.
  void CycleDone();

  // Per resource the smallest count of the first half of the samples, and of the second half: what
  // is taken and given back is seen at its lowest, a leak goes up all the time.
  struct Course {
    TextView resource;
    long before;
    long after;
    bool grew;
  };
  [[nodiscard]] std::vector<Course> Courses() const;

 private:
  int cycles_;
  int done_ = 0;
  int taken_ = 0;  // of the samples
  std::vector<std::vector<long>> samples_;
};

}  // namespace quill::host

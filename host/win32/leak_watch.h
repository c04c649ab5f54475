// Whether work that is repeated leaves something behind in this process.
#pragma once

#include <vector>

#include "host/win32/resource_counters.h"

namespace quill::host {

class LeakWatch {
 public:
  // The first tenth of the cycles warms up: what the system keeps from then on is no leak.
  explicit LeakWatch(int cycles);

  // To be called after each cycle. Counts ten times in all.
  void CycleDone();

  // Per resource the least count of the first half after warming up, and of the second half: what
  // is taken in turns is seen at its lowest, what leaks goes up all the time. Of a heap, which the
  // system too makes use of now and then, only what rises from count to count to the end, or by
  // more than ten blocks of 800 bytes, and one in each 25th cycle up to five, has grown.
  struct Course {
    Resource resource;
    long before;
    long after;
    bool grew;
  };
  [[nodiscard]] std::vector<Course> Courses() const;

 private:
  int cycles_;
  int done_ = 0;
  std::vector<ResourceCounts> samples_;
};

}  // namespace quill::host

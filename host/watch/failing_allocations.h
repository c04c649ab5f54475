// Makes allocations of the program fail by plan. For programs that link quill_failing_allocations,
// which replaces the global operator new; in others nothing fails.
#pragma once

#include "host/watch/fault_plan.h"

namespace quill::host {

// What operator new asks. Not for use but by the class below.
inline constinit FaultPlan* allocation_faults = nullptr;

// While one lives, `plan`, which outlives it, is asked before each allocation; one that it strikes
// throws std::bad_alloc. One at a time.
class FailingAllocations {
 public:
  explicit FailingAllocations(FaultPlan& plan) noexcept { allocation_faults = &plan; }
  ~FailingAllocations() { allocation_faults = nullptr; }
  FailingAllocations(const FailingAllocations&) = delete;
  FailingAllocations& operator=(const FailingAllocations&) = delete;
};

}  // namespace quill::host

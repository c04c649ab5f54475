// Makes allocations of the program fail by plan. For programs that link quill_failing_allocations,
// which replaces the global operator new; in others nothing fails.
#pragma once

#include "headless/fault_plan.h"

namespace quill::headless {

// What operator new looks at. Not for use but by the classes below.
struct AllocationFaults {
  FaultPlan* plan = nullptr;
  int spared = 0;
};
inline constinit AllocationFaults allocation_faults{};

// While one lives, `plan`, which outlives it, is asked before each allocation; one that it strikes
// throws std::bad_alloc. One at a time.
class FailingAllocations {
 public:
  explicit FailingAllocations(FaultPlan& plan) noexcept { allocation_faults.plan = &plan; }
  ~FailingAllocations() { allocation_faults.plan = nullptr; }
  FailingAllocations(const FailingAllocations&) = delete;
  FailingAllocations& operator=(const FailingAllocations&) = delete;
};

// While one lives, no allocation fails or counts: what stands for the system, the host or the
// operator does not live on the plug-in's memory.
class SparedAllocations {
 public:
  SparedAllocations() noexcept { ++allocation_faults.spared; }
  ~SparedAllocations() { --allocation_faults.spared; }
  SparedAllocations(const SparedAllocations&) = delete;
  SparedAllocations& operator=(const SparedAllocations&) = delete;
};

}  // namespace quill::headless

// What stands for the system, the host or the operator does not live on the plug-in's memory:
// where tests make allocations fail (host/watch/fault_plan.h), it is spared.
#pragma once

namespace quill::headless {

// How many of the objects below live.
inline constinit int spared_allocations = 0;

// While one lives, no allocation fails or counts.
class SparedAllocations {
 public:
  SparedAllocations() noexcept { ++spared_allocations; }
  ~SparedAllocations() { --spared_allocations; }
  SparedAllocations(const SparedAllocations&) = delete;
  SparedAllocations& operator=(const SparedAllocations&) = delete;
};

}  // namespace quill::headless

// Makes allocations of this program fail on demand.
#pragma once

namespace quill {

// While one lives, `allowed` allocations succeed and every later one throws std::bad_alloc.
class FailingAllocation {
 public:
  explicit FailingAllocation(int allowed) noexcept;
  ~FailingAllocation();
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;

  // Whether an allocation has failed since it began.
  [[nodiscard]] bool Struck() const noexcept;
};

}  // namespace quill

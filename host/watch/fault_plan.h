// Which of the calls that are counted fail: the n-th one, or the n-th and every later one. To sweep
// an operation, run it with n = 1, 2, 3 ... until the plan has not struck: each step has then
// failed once.
//
// Allocations fail by plan in programs that link quill_failing_allocations, which replaces the
// global operator new; in others none fails.
#pragma once

#include <cstdint>

namespace quill::host {

class FaultPlan {
 public:
  enum class Extent : std::uint8_t { kOnce, kFromThereOn };

  // Strikes nothing.
  FaultPlan() = default;
  // `nth` counts from 1.
  FaultPlan(int nth, Extent extent) noexcept : nth_(nth), extent_(extent) {}

  // Counts a call; true when it has to fail.
  [[nodiscard]] bool Strikes() noexcept {
    ++calls_;
    const bool strikes = extent_ == Extent::kOnce ? calls_ == nth_ : nth_ > 0 && calls_ >= nth_;
    if (strikes) ++struck_;
    return strikes;
  }
  [[nodiscard]] int calls() const noexcept { return calls_; }
  // How many calls have failed.
  [[nodiscard]] int struck() const noexcept { return struck_; }

 private:
  int nth_ = 0;
  Extent extent_ = Extent::kOnce;
  int calls_ = 0;
  int struck_ = 0;
};

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

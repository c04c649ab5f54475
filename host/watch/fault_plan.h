// Which of the calls that are counted fail: the n-th one, or the n-th and every later one. To sweep
// an operation, run it with n = 1, 2, 3 ... until the plan has not struck: each step has then
// failed once.
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

}  // namespace quill::host

// The fields of a game-settings reply, as views into the payload that they came in.
#pragma once

#include <array>

#include "support/text.h"

namespace quill {

class ReplyFields {
 public:
  // Further fields of a payload are ignored.
  static constexpr int kMostFields = 33;

  ReplyFields() = default;
  ReplyFields(const ReplyFields&) = delete;
  ReplyFields& operator=(const ReplyFields&) = delete;

  // Takes a payload's fields, joined by "_", in place of those it held.
  void Assign(Text payload);

  // 0 before the first Assign, at most kMostFields.
  [[nodiscard]] int Count() const noexcept { return count_; }
  // 0-based; kSubscriptOutOfRange when there is no such field.
  [[nodiscard]] TextView operator[](int number) const;
  // The same, but empty when there is no such field.
  [[nodiscard]] TextView ValueOrEmpty(int number) const noexcept;

  // Puts `value`, which must outlive this, in the place of a field that is not a number.
  void RepairNumber(int number, TextView value);

 private:
  Text payload_;
  std::array<TextView, kMostFields> fields_;
  int count_ = 0;
};

}  // namespace quill

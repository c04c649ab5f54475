// The rows of a list: texts in one buffer, with a number each. Append-only between clears, so that
// a long list costs no allocation a row.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "support/text.h"

namespace quill::ui {

class RowStore {
 public:
  void Clear() noexcept;
  // The row's text is the parts joined.
  void Append(std::initializer_list<TextView> parts);
  [[nodiscard]] int Count() const noexcept { return static_cast<int>(rows_.size()); }
  // `row` is 0-based and must exist. The view is valid until the next change.
  [[nodiscard]] TextView TextOf(int row) const noexcept;
  [[nodiscard]] std::int32_t DataOf(int row) const noexcept;
  void SetData(int row, std::int32_t data) noexcept;

 private:
  struct Row {
    std::size_t begin;
    std::size_t length;
    std::int32_t data;
  };
  Text buffer_;
  std::vector<Row> rows_;
};

}  // namespace quill::ui

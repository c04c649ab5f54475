// Rows as pieces of one text buffer.
#include "ui/row_store.h"

namespace quill::ui {

void RowStore::Clear() noexcept {
  buffer_.clear();
  rows_.clear();
}

void RowStore::Append(std::initializer_list<TextView> parts) {
  const std::size_t begin = buffer_.size();
  try {
    for (const TextView part : parts) buffer_ += part;
    rows_.push_back({begin, buffer_.size() - begin, 0});
  } catch (...) {
    buffer_.resize(begin);
    throw;
  }
}

TextView RowStore::TextOf(int row) const noexcept {
  const Row& found = rows_[static_cast<std::size_t>(row)];
  return TextView(buffer_).substr(found.begin, found.length);
}

std::int32_t RowStore::DataOf(int row) const noexcept {
  return rows_[static_cast<std::size_t>(row)].data;
}

void RowStore::SetData(int row, std::int32_t data) noexcept {
  rows_[static_cast<std::size_t>(row)].data = data;
}

}  // namespace quill::ui

#include "maps/selected_map_list.h"

#include <utility>

#include "support/runtime_error.h"

namespace quill {

const SelectedMap& SelectedMapList::At(int position) const {
  if (position < 1 || position > Count()) throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
  return maps_[static_cast<std::size_t>(position) - 1];
}

void SelectedMapList::Remove(const std::vector<bool>& marked_rows) {
  std::vector<SelectedMap> kept;
  kept.reserve(maps_.size());
  for (std::size_t row = 0; row < maps_.size(); ++row) {
    const bool marked = row < marked_rows.size() && marked_rows[row];
    if (!marked) kept.push_back(maps_[row]);
  }
  maps_ = std::move(kept);
}

}  // namespace quill

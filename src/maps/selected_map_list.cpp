// The rotation, and where its rows go when they are moved or taken out.
#include "maps/selected_map_list.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

#include "support/runtime_error.h"

namespace quill {

const SelectedMap& SelectedMapList::At(int position) const {
  if (position < 1 || position > Count()) throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
  return maps_[static_cast<std::size_t>(position) - 1];
}

std::vector<int> OrderAfter(RowMove move, const std::vector<bool>& marked_rows) {
  std::vector<int> order(marked_rows.size());
  std::iota(order.begin(), order.end(), 0);
  const auto is_marked = [&](int row) { return marked_rows[static_cast<std::size_t>(row)]; };
  // Those at the edge stay, and hold up those behind them.
  const auto move_by_one = [&](auto begin, auto end) {
    for (auto row = begin; row != end && row + 1 != end; ++row) {
      if (!is_marked(*row) && is_marked(row[1])) std::swap(row[0], row[1]);
    }
  };
  switch (move) {
    case RowMove::kUp:
      move_by_one(order.begin(), order.end());
      break;
    case RowMove::kDown:
      move_by_one(order.rbegin(), order.rend());
      break;
    case RowMove::kToTop:
      std::ranges::stable_partition(order, is_marked);
      break;
    case RowMove::kToEnd:
      std::ranges::stable_partition(order, std::not_fn(is_marked));
      break;
    case RowMove::kOut:
      std::erase_if(order, is_marked);
      break;
  }
  return order;
}

void SelectedMapList::Reorder(const std::vector<int>& order) {
  std::vector<SelectedMap> reordered;
  reordered.reserve(order.size());
  for (const int row : order) reordered.push_back(At(row + 1));
  maps_ = std::move(reordered);
}

}  // namespace quill

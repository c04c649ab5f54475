// Undo and redo of the rotation. A step is kept as the rows in which two rotations differ.
#include "maps/rotation_history.h"

#include <algorithm>
#include <utility>

namespace quill {

void RotationHistory::Forget() noexcept {
  is_known_ = true;
  noted_.clear();
  undo_.clear();
  redo_.clear();
}

void RotationHistory::Note(const SelectedMapList& rotation) noexcept {
  const std::vector<SelectedMap>& now = rotation.maps();
  const auto [old_begin, new_begin] = std::ranges::mismatch(noted_, now);
  if (old_begin == noted_.end() && new_begin == now.end()) return;
  auto old_end = noted_.end();
  auto new_end = now.end();
  while (old_end != old_begin && new_end != new_begin && old_end[-1] == new_end[-1]) {
    --old_end;
    --new_end;
  }
  try {
    std::vector<SelectedMap> next = now;
    if (is_known_) {
      undo_.push_back({static_cast<std::size_t>(old_begin - noted_.begin()),
                       static_cast<std::size_t>(new_end - new_begin),
                       {old_begin, old_end}});
    }
    noted_ = std::move(next);
    is_known_ = true;
  } catch (...) {
    // A step that is missing would make those before it change the wrong rows.
    Forget();
    is_known_ = false;
    return;
  }
  if (undo_.size() > kMostSteps) undo_.erase(undo_.begin());
  redo_.clear();
}

bool RotationHistory::Step(SelectedMapList& rotation, std::vector<Change>& from,
                           std::vector<Change>& to) {
  if (from.empty()) return false;
  // Everything that takes memory comes before the first change.
  const Change& change = from.back();
  const auto first = noted_.begin() + static_cast<std::ptrdiff_t>(change.first);
  const auto last = first + static_cast<std::ptrdiff_t>(change.count);
  std::vector<SelectedMap> next(noted_.begin(), first);
  next.insert(next.end(), change.maps.begin(), change.maps.end());
  next.insert(next.end(), last, noted_.end());
  std::vector<SelectedMap> shown = next;
  to.push_back({change.first, change.maps.size(), {first, last}});
  from.pop_back();
  noted_ = std::move(next);
  rotation.Replace(std::move(shown));
  return true;
}

}  // namespace quill

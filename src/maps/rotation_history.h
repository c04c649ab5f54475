// The changes of the rotation that can be undone and redone.
#pragma once

#include <cstddef>
#include <vector>

#include "maps/selected_map_list.h"

namespace quill {

class RotationHistory {
 public:
  static constexpr std::size_t kMostSteps = 100;

  // From an empty rotation on.
  void Forget() noexcept;
  // Whatever has changed in `rotation` since the last call is one step. Without memory for it all
  // steps are forgotten.
  void Note(const SelectedMapList& rotation) noexcept;
  // Nothing is known to have changed since.
  [[nodiscard]] bool IsNoted(const SelectedMapList& rotation) const {
    return !is_known_ || noted_ == rotation.maps();
  }

  // Whether there is a step for `rotation`, once its change is noted.
  [[nodiscard]] bool CanUndo(const SelectedMapList& rotation) const {
    return !undo_.empty() || !IsNoted(rotation);
  }
  [[nodiscard]] bool CanRedo(const SelectedMapList& rotation) const {
    return !redo_.empty() && IsNoted(rotation);
  }
  // False when there is nothing to undo or redo. On failure everything stays as it was.
  bool Undo(SelectedMapList& rotation) { return Step(rotation, undo_, redo_); }
  bool Redo(SelectedMapList& rotation) { return Step(rotation, redo_, undo_); }

 private:
  // `maps` in place of `count` others from the 0-based row `first` on: only what differs is kept,
  // so that steps in a long list are small.
  struct Change {
    std::size_t first;
    std::size_t count;
    std::vector<SelectedMap> maps;
  };
  bool Step(SelectedMapList& rotation, std::vector<Change>& from, std::vector<Change>& to);

  bool is_known_ = true;
  std::vector<SelectedMap> noted_;
  std::vector<Change> undo_;  // the latest last
  std::vector<Change> redo_;
};

}  // namespace quill

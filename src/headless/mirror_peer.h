// The peer of a control without a screen: it keeps its own copy of what the control shows, taken
// over only for the sides that a Sync names, as a native window would. A change that the model
// forgot to tell is therefore missing here.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "ui/controls.h"

namespace quill::headless {

using MirroredRow = ui::Selector::Row;

// What is shown of something that a control itself holds. One that several kinds of controls have
// has a row for each.
struct MirroredProperty {
  TextView name;
  ui::Changes side;                     // by which the peer is told of it; none: it never changes
  std::optional<ui::ControlKind> kind;  // none: all
  Text (*read)(const ui::Control& control);  // which is of that kind
};

class MirrorPeer final : public ui::Peer {
 public:
  // `before_sync` is told of each Sync; when it fails, nothing is taken over.
  MirrorPeer(ui::Control& control, std::function<void(const ui::Control&)> before_sync);
  ~MirrorPeer() override;

  void Sync(ui::Changes changes) override;

  // What is shown, as text; nothing for a property that this kind of control does not have.
  //
  // All: name, kind, enabled, visible, shown, tooltip, left, top, width, height, bounds
  // ("left,top,width,height"), order (place among its siblings, 0 at the back), tab_index,
  // container. By kind: text, caption, value, alignment, limit, locked, transparent, colour,
  // picture (full path, empty for none), pointer, index
  // (chosen or current row; alias current), count, rows (texts, a line each), selected (rows joined
  // by blanks; alias selection), "item N", "data N". In a list box top is the first visible row.
  [[nodiscard]] std::optional<Text> Property(TextView name) const;

  [[nodiscard]] ui::Control& control() const noexcept { return control_; }
  [[nodiscard]] const std::vector<MirroredRow>& rows() const noexcept { return rows_; }
  [[nodiscard]] int current() const noexcept { return current_; }
  [[nodiscard]] int top_row() const noexcept { return top_row_; }
  // The outermost one, up to the form, that is hidden or disabled; null when there is none.
  [[nodiscard]] const MirrorPeer* Obstacle() const;
  // A property that shows something else than its control holds; empty when there is none. The rows
  // of a hidden list, which are told when it is shown, do not count.
  [[nodiscard]] TextView StaleSide() const;

  // What a native control changes by itself, just before it tells its model.
  void ChangeText(Text text);  // of a text box
  void ChangeCurrent(int row) { current_ = row; }
  void ChangeSelection(const std::vector<int>& rows, int current);
  void ChangeTopRow(int row) { top_row_ = row; }

  // Work that the model has asked for, for tests of its economy.
  [[nodiscard]] std::size_t syncs() const noexcept { return syncs_; }
  [[nodiscard]] std::size_t rows_taken() const noexcept { return rows_taken_; }

 private:
  void TakeRows(ui::Changes changes);
  [[nodiscard]] bool SelectsMany() const;
  void ComeToFront();
  void LeaveContainer() noexcept;
  [[nodiscard]] bool StacksLikeControl() const;
  // A property of the control itself.
  [[nodiscard]] std::optional<Text> Held(TextView name) const;
  [[nodiscard]] std::optional<Text> RowProperty(TextView name) const;

  ui::Control& control_;
  const ui::Selector* selector_;  // the control, when it has rows
  std::function<void(const ui::Control&)> before_sync_;
  MirrorPeer* container_ = nullptr;
  std::vector<MirrorPeer*> stacked_;  // those lying in this one, the front last

  struct HeldValue {
    const MirroredProperty* property;
    Text value;
  };
  std::vector<HeldValue> held_;
  ui::Bounds bounds_;
  std::vector<MirroredRow> rows_;
  int current_ = -1;
  int top_row_ = 0;

  std::size_t syncs_ = 0;
  std::size_t rows_taken_ = 0;
};

// The mirror of `control`; fails with kObjectNotSet when its form has none yet.
[[nodiscard]] MirrorPeer& MirrorOf(const ui::Control& control);

}  // namespace quill::headless

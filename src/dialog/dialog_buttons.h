// The dialog's seven image buttons as one table, and what their mouse events do.
#pragma once

#include <span>

#include "dialog/frmrcBHDGS.h"
#include "ui/image_button.h"

namespace quill {

struct DialogButton {
  TextView name;  // of the caption; the face is named after it
  TextView caption;
  TextView container;
  ui::Bounds bounds;
  char16_t access_key;  // reaches it together with Alt; no two of one page are the same
  int tab_place;        // of the face in the tab order, behind fmeMap
  // What a release of any mouse button does.
  void (*action)(frmrcBHDGS& dialog);
  TextView spoken = {};  // what assistive tools call it; empty: its caption
  bool repeats = false;  // while its key is held
};

// In the order in which they are built.
[[nodiscard]] std::span<const DialogButton> DialogButtons() noexcept;

// Both fail as the image button builders do. All faces are built before the first caption.
void BuildButtonFace(frmrcBHDGS& dialog, const DialogButton& button);
void BuildButtonCaption(frmrcBHDGS& dialog, const DialogButton& button);

}  // namespace quill

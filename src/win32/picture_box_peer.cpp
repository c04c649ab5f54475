// A picture box holds one colour, in its window and in its memory image.
#include "win32/picture_box_peer.h"

#include "win32/native_colour.h"
#include "win32/owned.h"

namespace quill::win32 {

void PictureBoxPeer::Show(ui::Changes changes) {
  if (!changes.Has(ui::Changes::kBounds) && !changes.Has(ui::Changes::kColour)) return;
  RECT area = {};
  GetClientRect(window(), &area);
  inner_size_ = {area.right, area.bottom};
  if (changes.Has(ui::Changes::kBounds) || !model_.persistent_image()) image_.reset();
  if (model_.persistent_image()) {
    if (!image_.has_value()) image_.emplace(inner_size_);
    Draw(image_->context(), area);
  }
  if (model_.visible()) Repaint();
}

void PictureBoxPeer::Draw(HDC context, const RECT& area) const {
  const Owned<HBRUSH> brush(CreateSolidBrush(ToColorRef(model_.back_colour())));
  FillRect(context, &area, brush.get());
}

std::unique_ptr<WindowPeer> MakePictureBoxPeer(Win32Toolkit& toolkit, ui::Control& control) {
  return MakePeerOf<PictureBoxPeer>(toolkit, control);
}

}  // namespace quill::win32

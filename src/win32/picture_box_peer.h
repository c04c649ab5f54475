// The native window of a picture box, and the memory image that holds its drawing.
#pragma once

#include <optional>

#include "ui/controls.h"
#include "win32/drawing_surface.h"
#include "win32/peers.h"

namespace quill::win32 {

class PictureBoxPeer final : public PeerOf<ui::PictureBox, DrawnPeer> {
 public:
  using PeerOf::PeerOf;

  // With a persistent image: its device context, in which the whole of it has the background
  // colour. Null otherwise.
  [[nodiscard]] HDC image() const noexcept {
    return image_.has_value() ? image_->context() : nullptr;
  }
  // The box's inner size in pixels.
  [[nodiscard]] SIZE inner_size() const noexcept { return inner_size_; }

 protected:
  [[nodiscard]] Style GetStyle() const override { return {L"STATIC", nullptr, 0, 0}; }
  void Show(ui::Changes changes) override;
  void Draw(HDC context, const RECT& area) const override;

 private:
  std::optional<DrawingSurface> image_;
  SIZE inner_size_ = {};
};

}  // namespace quill::win32

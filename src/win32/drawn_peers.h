// Peers whose windows have no looks of their own.
#pragma once

#include "ui/controls.h"
#include "win32/drawing.h"
#include "win32/peers.h"

namespace quill::win32 {

// All of the window is drawn here, off the screen first.
class DrawnPeer : public WindowPeer {
 protected:
  using WindowPeer::WindowPeer;

  // Draws the whole client area.
  virtual void Draw(HDC context, const RECT& area) const = 0;
  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override;
};

class PictureBoxPeer final : public PeerOf<ui::PictureBox, DrawnPeer> {
 public:
  using PeerOf::PeerOf;

  // With a persistent image: its device context. The image is one pixel of the background colour,
  // which stands for the whole of it. Null otherwise.
  [[nodiscard]] HDC image() const noexcept {
    return model_.persistent_image() ? image_.context() : nullptr;
  }

  [[nodiscard]] Style GetStyle() const override { return {L"STATIC"}; }
  void Show(ui::Changes changes) override;
  void Draw(HDC context, const RECT& area) const override;

 private:
  DrawingSurface image_{{1, 1}};
};

}  // namespace quill::win32

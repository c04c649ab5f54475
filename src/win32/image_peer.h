// The native window of an image; as a tab stop it takes the keyboard focus like a button.
#pragma once

#include "ui/image.h"
#include "win32/window_peer.h"

namespace quill::win32 {

class ImagePeer final : public WindowPeer {
 public:
  ImagePeer(Win32Toolkit& toolkit, ui::Image& image) noexcept
      : WindowPeer(toolkit, image), image_(image) {}

  // Draws the picture where the image lies in its container, relative to the container's `origin`.
  void DrawBehind(HDC context, POINT origin) const;

 protected:
  [[nodiscard]] bool CapturesMouse() const noexcept override { return true; }
  [[nodiscard]] Style GetStyle() const override;
  void Show(ui::Changes changes) override;
  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override;

 private:
  void Draw(HDC context, const RECT& area) const;
  void DrawAll(HDC context, const RECT& area) const;  // with the ground
  void DrawFocus(HDC context, RECT area) const;

  ui::Image& image_;
};

}  // namespace quill::win32

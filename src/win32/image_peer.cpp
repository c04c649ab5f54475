// The native window of an image; as a tab stop it takes the keyboard focus like a button.
#include "ui/controls.h"

#include "ui/image_button.h"
#include "win32/form_peer.h"
#include "win32/native_colour.h"
#include "win32/native_picture.h"
#include "win32/peers.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {
namespace {

class ImagePeer final : public PeerOf<ui::Image, DrawnPeer> {
 public:
  using PeerOf::PeerOf;

 protected:
  [[nodiscard]] bool CapturesMouse() const noexcept override { return true; }
  [[nodiscard]] Style GetStyle() const override {
    return {Win32Toolkit::kImageClass, nullptr, model_.IsTabStop() ? WS_TABSTOP : 0u, 0};
  }

  void Show(ui::Changes changes) override {
    if (changes.Has(ui::Changes::kPicture)) RepaintWithFront();
  }

  void Draw(HDC context, const RECT& area) const override {
    FillRect(context, &area, form_peer().FaceBrush());
    if (model_.IsTabStop() && IsHighContrast()) {
      DrawPlainButton(context, area);
    } else if (model_.picture() != nullptr) {
      const auto& picture = static_cast<const NativePicture&>(*model_.picture());
      RECT target = area;
      if (!model_.stretch()) {
        const SIZE size = toolkit().scale().Scaled(picture.Size());
        target.right = target.left + size.cx;
        target.bottom = target.top + size.cy;
      }
      picture.Draw(context, target);
    }
    if (GetFocus() == window()) DrawFocus(context, area);
  }

  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override {
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS) RepaintWithFront();
    return DrawnPeer::Handle(message, wparam, lparam);
  }

 private:
  void RepaintWithFront() const {
    Repaint();
    RepaintInFront();
  }

  // In the operator's colours, which the picture does not know.
  void DrawPlainButton(HDC context, RECT area) const {
    const bool pressed = ui::LooksPressed(model_);
    DrawFrameControl(context, &area, DFC_BUTTON, DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0u));
    if (!pressed) return;
    // Schemes of few colours draw both edges alike.
    InflateRect(&area, -2, -2);
    FrameRect(context, &area, GetSysColorBrush(COLOR_HIGHLIGHT));
  }

  void DrawFocus(HDC context, RECT area) const {
    constexpr ui::Twips kInset = 45;
    InflateRect(&area, -toolkit().scale().PixelsX(kInset), -toolkit().scale().PixelsY(kInset));
    SetTextColor(context, 0);
    SetBkColor(context, RGB(255, 255, 255));
    DrawFocusRect(context, &area);
  }
};

}  // namespace

std::unique_ptr<WindowPeer> MakeImagePeer(Win32Toolkit& toolkit, ui::Control& control) {
  return MakePeerOf<ImagePeer>(toolkit, control);
}

}  // namespace quill::win32

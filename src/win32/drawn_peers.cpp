// Labels, images and picture boxes. A label draws itself, so that a transparent one shows what lies
// behind it between its letters.
#include "win32/drawn_peers.h"

#include "ui/controls.h"
#include "ui/image_button.h"
#include "win32/form_peer.h"
#include "win32/native_picture.h"
#include "win32/native_text.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {
namespace {

using ui::Changes;

class LabelPeer final : public PeerOf<ui::Label, DrawnPeer> {
 public:
  using PeerOf::PeerOf;

  [[nodiscard]] bool CapturesMouse() const noexcept override { return true; }
  [[nodiscard]] Style GetStyle() const override {
    return {L"STATIC", &model_.caption(),
            AlignmentStyle(model_.alignment) | SS_NOPREFIX | SS_NOTIFY};
  }

  void Show(Changes changes) override {
    // The window's own text is not drawn, but assistive tools read it.
    if (changes.Has(Changes::kText) && !making()) SetWindowTextW(window(), Wide(model_.caption()));
    if (changes.Has(Changes::kText | Changes::kBounds)) {
      Repaint();
    }
  }

  void Draw(HDC context, const RECT& area) const override {
    if (model_.transparent) {
      DrawWhatLiesBehind(context);
    } else {
      FillRect(context, &area, form_peer().FaceBrush());
    }
    Text caption = model_.caption();
    UINT flags = DT_WORDBREAK | DT_EXPANDTABS | AlignmentStyle(model_.alignment);
    const std::size_t place = form_peer().shows_access_keys() && model_.access_key != 0
                                  ? ToUpper(caption).find(model_.access_key)
                                  : Text::npos;
    if (place != Text::npos) {
      caption.insert(place, 1, u'&');
    } else {
      flags |= DT_NOPREFIX;
    }
    const HGDIOBJ previous = SelectObject(context, form_peer().Font());
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context,
                 model_.enabled() ? form_peer().TextColour() : GetSysColor(COLOR_GRAYTEXT));
    RECT text_area = area;
    DrawTextW(context, Wide(caption), static_cast<int>(caption.size()), &text_area, flags);
    SelectObject(context, previous);
  }

  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override {
    switch (message) {
      case WM_SETTEXT:
        // The class itself would draw the text at once, in its own way.
        return DefWindowProcW(window(), message, wparam, lparam);
      case WM_GETFONT:
        return reinterpret_cast<LRESULT>(form_peer().Font());
      case WM_ENABLE:
        Repaint();
        return 0;
      default:
        return DrawnPeer::Handle(message, wparam, lparam);
    }
  }

 private:
  // Everything that can lie behind a label: the frame around it, and the images beside it.
  void DrawWhatLiesBehind(HDC context) const {
    const RECT own = Place();
    const auto draw = [&](HWND window, const RECT& place) {
      POINT origin = {};
      // Each window draws from its own corner.
      SetViewportOrgEx(context, place.left - own.left, place.top - own.top, &origin);
      SendMessageW(window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(context), 0);
      SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(context), PRF_CLIENT);
      SetViewportOrgEx(context, origin.x, origin.y, nullptr);
    };
    draw(GetParent(window()), {});
    for (const ui::Control* const sibling : model_.container()->children()) {
      // Those that follow lie in front.
      if (sibling == &model_) return;
      const WindowPeer* const peer = Of(*sibling);
      if (sibling->kind() == ui::ControlKind::kImage && sibling->visible() && peer != nullptr) {
        draw(peer->window(), toolkit().scale().Pixels(sibling->bounds()));
      }
    }
  }
};

// As a tab stop it takes the keyboard focus like a button.
class ImagePeer final : public PeerOf<ui::Image, DrawnPeer> {
 public:
  using PeerOf::PeerOf;

  [[nodiscard]] bool CapturesMouse() const noexcept override { return true; }
  [[nodiscard]] Style GetStyle() const override {
    return {Win32Toolkit::kImageClass, nullptr, model_.IsTabStop() ? WS_TABSTOP : 0u};
  }

  void Show(Changes changes) override {
    if (changes.Has(Changes::kPicture)) RepaintWithFront();
  }

  void Draw(HDC context, const RECT& area) const override {
    FillRect(context, &area, form_peer().FaceBrush());
    // The host's picture has colours of its own.
    if (model_.IsTabStop() && IsHighContrast()) {
      DrawPlainButton(context, area);
    } else if (model_.picture() != nullptr) {
      static_cast<const NativePicture&>(*model_.picture()).Draw(context, area);
    }
    if (GetFocus() == window()) DrawFocus(context, area);
  }

  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override {
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS) RepaintWithFront();
    return DrawnPeer::Handle(message, wparam, lparam);
  }

 private:
  // Together with the labels that let it shine through.
  void RepaintWithFront() const {
    const RECT place = Place();
    if (!making()) {
      RedrawWindow(GetParent(window()), &place, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    }
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
    const int inset = toolkit().scale().Pixels(45);  // twips
    InflateRect(&area, -inset, -inset);
    SetTextColor(context, 0);
    SetBkColor(context, RGB(255, 255, 255));
    DrawFocusRect(context, &area);
  }
};

}  // namespace

LRESULT DrawnPeer::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;  // nothing is seen before the drawing
    case WM_PRINTCLIENT: {
      RECT area;
      GetClientRect(window(), &area);
      Draw(reinterpret_cast<HDC>(wparam), area);
      return 0;
    }
    case WM_PAINT:
      PaintAtOnce(window(), [&](HDC context, const RECT& area) { Draw(context, area); });
      return 0;
    default:
      return WindowPeer::Handle(message, wparam, lparam);
  }
}

// A picture box holds one colour, in its window and in its memory image.
void PictureBoxPeer::Show(Changes changes) {
  if (!changes.Has(Changes::kColour)) return;
  Draw(image_.context(), {0, 0, 1, 1});
  Repaint();
}

void PictureBoxPeer::Draw(HDC context, const RECT& area) const {
  const Owned<HBRUSH> brush(CreateSolidBrush(ToColorRef(model_.back_colour())));
  FillRect(context, &area, brush.get());
}

PeerMaker* const kMakeLabelPeer = &MakePeerOf<LabelPeer>;
PeerMaker* const kMakeImagePeer = &MakePeerOf<ImagePeer>;
PeerMaker* const kMakePictureBoxPeer = &MakePeerOf<PictureBoxPeer>;

}  // namespace quill::win32

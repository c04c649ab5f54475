// The native window of a label. It draws itself, so that a transparent one shows what lies behind
// it between its letters.
#include "ui/controls.h"

#include "win32/form_peer.h"
#include "win32/native_text.h"
#include "win32/peers.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {
namespace {

class LabelPeer final : public PeerOf<ui::Label, DrawnPeer> {
 public:
  using PeerOf::PeerOf;

 protected:
  [[nodiscard]] bool CapturesMouse() const noexcept override { return true; }
  [[nodiscard]] Style GetStyle() const override {
    return {L"STATIC", &model_.caption(),
            AlignmentStyle(model_.alignment()) | SS_NOPREFIX | SS_NOTIFY, 0};
  }

  void Show(ui::Changes changes) override {
    using ui::Changes;
    // The window's own text and style are not drawn, but assistive tools read them.
    if (changes.Has(Changes::kText) && !making()) {
      if (WindowText(window()) != model_.caption()) {
        SetWindowTextW(window(), Wide(model_.caption()));
      }
      const auto style = static_cast<DWORD>(GetWindowLongPtrW(window(), GWL_STYLE));
      const DWORD wanted = (style & ~DWORD{SS_TYPEMASK}) | AlignmentStyle(model_.alignment());
      if (style != wanted) SetWindowLongPtrW(window(), GWL_STYLE, static_cast<LONG_PTR>(wanted));
    }
    if (changes.Has(Changes::kText) || changes.Has(Changes::kFont) ||
        changes.Has(Changes::kColour) || changes.Has(Changes::kBounds)) {
      Repaint();
    }
  }

  void Draw(HDC context, const RECT& area) const override {
    if (model_.transparent()) {
      DrawWhatLiesBehind(context);
    } else {
      FillRect(context, &area, form_peer().FaceBrush());
    }
    Text caption = model_.caption();
    UINT flags = DT_WORDBREAK | DT_EXPANDTABS | AlignmentStyle(model_.alignment());
    const std::size_t place = form_peer().shows_access_keys() && model_.access_key != 0
                                  ? ToUpper(caption).find(model_.access_key)
                                  : Text::npos;
    if (place != Text::npos) {
      caption.insert(place, 1, u'&');
    } else {
      flags |= DT_NOPREFIX;
    }
    const HGDIOBJ previous = SelectObject(context, form_peer().Font(model_.font_size()));
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
        return reinterpret_cast<LRESULT>(form_peer().Font(model_.font_size()));
      case WM_ENABLE:
        InvalidateRect(window(), nullptr, FALSE);
        return 0;
      default:
        return DrawnPeer::Handle(message, wparam, lparam);
    }
  }

 private:
  // Everything that can lie behind a label: the frame around it, and the images beside it.
  void DrawWhatLiesBehind(HDC context) const {
    const RECT own = Place();
    const auto draw = [&](HWND window, LONG left, LONG top) {
      POINT origin = {};
      SetViewportOrgEx(context, left - own.left, top - own.top, &origin);
      SendMessageW(window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(context), 0);
      SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(context), PRF_CLIENT);
      SetViewportOrgEx(context, origin.x, origin.y, nullptr);
    };
    draw(GetParent(window()), 0, 0);
    for (const ui::Control* const sibling : model_.container()->children()) {
      if (sibling == &model_) return;
      const WindowPeer* const peer = Of(*sibling);
      if (sibling->kind() != ui::ControlKind::kImage || !sibling->visible() || peer == nullptr) {
        continue;
      }
      const RECT place = toolkit().scale().Pixels(sibling->bounds());
      draw(peer->window(), place.left, place.top);
    }
  }
};

}  // namespace

std::unique_ptr<WindowPeer> MakeLabelPeer(Win32Toolkit& toolkit, ui::Control& control) {
  return MakePeerOf<LabelPeer>(toolkit, control);
}

}  // namespace quill::win32

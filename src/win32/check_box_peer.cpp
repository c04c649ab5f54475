// The native check box.
#include "ui/controls.h"
#include "win32/form_peer.h"
#include "win32/peers.h"

namespace quill::win32 {
namespace {

class CheckBoxPeer final : public PeerOf<ui::CheckBox> {
 public:
  using PeerOf::PeerOf;

  void OnCommand(WORD notification) override {
    if (notification == BN_CLICKED) Tell(ui::Clicked{});
  }

 protected:
  [[nodiscard]] Style GetStyle() const override {
    // Not an automatic one: whether a click changes its state is the model's.
    return {L"BUTTON", &model_.caption(), BS_3STATE | WS_TABSTOP, 0};
  }

  void Show(ui::Changes changes) override {
    if (changes.Has(ui::Changes::kValue) && Send(BM_GETCHECK) != model_.value()) {
      Send(BM_SETCHECK, static_cast<WPARAM>(model_.value()));
    }
  }

  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override {
    const LRESULT result = WindowPeer::Handle(message, wparam, lparam);
    if (window() == nullptr) return result;
    switch (message) {
      case WM_PAINT:
        if (GetFocus() == window()) DrawFocus();
        break;
      case WM_SETFOCUS:
      case WM_KILLFOCUS:
      case BM_SETCHECK:
      case BM_SETSTATE:  // which the class draws at once
        Repaint();
        break;
      default:
        break;
    }
    return result;
  }

 private:
  // Around the whole: the class would mark the caption, and there is none.
  void DrawFocus() const {
    const HDC context = GetDC(window());
    RECT area;
    GetClientRect(window(), &area);
    // The dots turn over what is there, so it has to be known.
    FrameRect(context, &area, form_peer().FaceBrush());
    SetTextColor(context, form_peer().TextColour());
    SetBkColor(context, form_peer().FaceColour());
    DrawFocusRect(context, &area);
    ReleaseDC(window(), context);
  }
};

}  // namespace

std::unique_ptr<WindowPeer> MakeCheckBoxPeer(Win32Toolkit& toolkit, ui::Control& control) {
  return MakePeerOf<CheckBoxPeer>(toolkit, control);
}

}  // namespace quill::win32

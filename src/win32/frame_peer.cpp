// The native group box of a frame, in which the windows of its controls lie.
#include "ui/controls.h"

#include <windows.h>

#include <uxtheme.h>

#include "win32/form_peer.h"
#include "win32/peers.h"

namespace quill::win32 {
namespace {

class FramePeer final : public PeerOf<ui::Frame> {
 public:
  using PeerOf::PeerOf;

 protected:
  [[nodiscard]] Style GetStyle() const override {
    return {L"BUTTON", &model_.caption(), BS_GROUPBOX | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT};
  }

  void Show(ui::Changes) override {
    // A visual style has a text colour of its own, which need not show on the form's faces. No
    // style has a class named by a blank; an empty name would not be kept everywhere.
    if (making()) SetWindowTheme(window(), L" ", L" ");
  }

  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override {
    switch (message) {
      case WM_ERASEBKGND:
        // A group box leaves its inside to the window behind, which here is the tab strip.
        return form_peer().FillFace(window(), reinterpret_cast<HDC>(wparam));
      case WM_NCHITTEST:
        return HTCLIENT;  // and likewise clicks on it, which would choose tabs
      case WM_LBUTTONDOWN:
      case WM_LBUTTONDBLCLK:
        return 0;  // the class would take the focus from the field being edited
      default:
        return WindowPeer::Handle(message, wparam, lparam);
    }
  }
};

}  // namespace

std::unique_ptr<WindowPeer> MakeFramePeer(Win32Toolkit& toolkit, ui::Control& control) {
  return MakePeerOf<FramePeer>(toolkit, control);
}

}  // namespace quill::win32

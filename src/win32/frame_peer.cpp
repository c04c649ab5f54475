#include "win32/frame_peer.h"

#include <uxtheme.h>

#include "win32/form_peer.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {

WindowPeer::Style FramePeer::GetStyle() const {
  return {L"BUTTON", &frame_.caption(), BS_GROUPBOX | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT};
}

void FramePeer::Show(ui::Changes changes) {
  if (changes.Has(ui::Changes::kFont)) SetFont(Win32Toolkit::kFontPoints);
  // A visual style has a text colour of its own, which need not show on the form's faces. No style
  // has a class named by a blank; an empty name would not be kept everywhere.
  if (making()) SetWindowTheme(window(), L" ", L" ");
}

LRESULT FramePeer::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_ERASEBKGND: {
      // A group box leaves its inside to the window behind, which here is the tab strip.
      RECT area;
      GetClientRect(window(), &area);
      FillRect(reinterpret_cast<HDC>(wparam), &area, form_peer().FaceBrush());
      return 1;
    }
    case WM_NCHITTEST:
      return HTCLIENT;  // and likewise clicks on it, which would choose tabs
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      return 0;  // the class would take the focus from the field being edited
    default:
      return WindowPeer::Handle(message, wparam, lparam);
  }
}

}  // namespace quill::win32

#include "win32/check_box_peer.h"

#include "win32/form_peer.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {

WindowPeer::Style CheckBoxPeer::GetStyle() const {
  return {L"BUTTON", &box_.caption(), BS_3STATE | WS_TABSTOP, 0};  // not an automatic one
}

void CheckBoxPeer::Show(ui::Changes changes) {
  if (changes.Has(ui::Changes::kFont)) SetFont(Win32Toolkit::kFontPoints);
  if (changes.Has(ui::Changes::kValue) && Send(BM_GETCHECK) != box_.value()) {
    Send(BM_SETCHECK, static_cast<WPARAM>(box_.value()));
  }
}

void CheckBoxPeer::OnCommand(WORD notification) {
  if (notification == BN_CLICKED) Tell(ui::Clicked{});
}

LRESULT CheckBoxPeer::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  const LRESULT result = WindowPeer::Handle(message, wparam, lparam);
  if (window() == nullptr) return result;
  switch (message) {
    case WM_PAINT:
      if (GetFocus() == window()) {
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

}  // namespace quill::win32

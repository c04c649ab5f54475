#include "win32/check_box_peer.h"

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

}  // namespace quill::win32

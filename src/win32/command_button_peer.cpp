#include "win32/command_button_peer.h"

#include <utility>

#include "win32/native_text.h"
#include "win32/this_module.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {

CommandButtonPeer::~CommandButtonPeer() {
  if (icon_ != nullptr) DestroyIcon(icon_);
}

WindowPeer::Style CommandButtonPeer::GetStyle() const {
  return {L"BUTTON", &button_.caption(),
          BS_PUSHBUTTON | WS_TABSTOP | (!button_.icon().empty() ? BS_ICON : 0u), 0};
}

void CommandButtonPeer::Show(ui::Changes changes) {
  if (changes.Has(ui::Changes::kFont)) SetFont(Win32Toolkit::kFontPoints);
  if (changes.Has(ui::Changes::kPicture) && !button_.icon().empty()) ShowIcon();
}

void CommandButtonPeer::ShowIcon() {
  const SIZE size = toolkit().scale().Scaled(SIZE{32, 32});
  const HICON former = std::exchange(
      icon_, static_cast<HICON>(LoadImageW(ThisModule(), Wide(Text(button_.icon())), IMAGE_ICON,
                                           size.cx, size.cy, LR_DEFAULTCOLOR)));
  Send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon_));
  if (former != nullptr) DestroyIcon(former);
}

void CommandButtonPeer::OnCommand(WORD notification) {
  if (notification == BN_CLICKED) Tell(ui::Clicked{});
}

}  // namespace quill::win32

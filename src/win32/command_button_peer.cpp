#include "win32/command_button_peer.h"

#include <utility>

#include "win32/native_picture.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {

CommandButtonPeer::~CommandButtonPeer() {
  if (icon_ != nullptr) DestroyIcon(icon_);
}

WindowPeer::Style CommandButtonPeer::GetStyle() const {
  return {L"BUTTON", &button_.caption(),
          BS_PUSHBUTTON | WS_TABSTOP | (button_.picture() != nullptr ? BS_ICON : 0u), 0};
}

void CommandButtonPeer::Show(ui::Changes changes) {
  if (changes.Has(ui::Changes::kFont)) SetFont(Win32Toolkit::kFontPoints);
  if (changes.Has(ui::Changes::kPicture)) ShowPicture();
}

void CommandButtonPeer::ShowPicture() {
  const auto* const picture = static_cast<const NativePicture*>(button_.picture().get());
  const HICON former = std::exchange(
      icon_,
      picture != nullptr ? MakeIcon(*picture, toolkit().scale().Scaled(picture->Size())) : nullptr);
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(window(), GWL_STYLE));
  const DWORD wanted = icon_ != nullptr ? style | BS_ICON : style & ~static_cast<DWORD>(BS_ICON);
  if (style != wanted) SetWindowLongPtrW(window(), GWL_STYLE, static_cast<LONG_PTR>(wanted));
  if (icon_ != nullptr || former != nullptr) {
    Send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon_));
  }
  if (former != nullptr) DestroyIcon(former);
}

void CommandButtonPeer::OnCommand(WORD notification) {
  if (notification == BN_CLICKED) Tell(ui::Clicked{});
}

LRESULT CommandButtonPeer::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_KEYDOWN && wparam == VK_RETURN) {
    Tell(ui::Clicked{IsRepeated(lparam)});
    return 0;
  }
  return WindowPeer::Handle(message, wparam, lparam);
}

}  // namespace quill::win32

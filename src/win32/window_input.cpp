// What the operator does with keys and mouse buttons on a window, as facts.
#include <windowsx.h>

#include <utility>

#include "win32/win32_toolkit.h"
#include "win32/window_peer.h"

namespace quill::win32 {
namespace {

struct Button {
  UINT down;  // the messages of its going up and of its double click follow this one
  int key;
  std::int16_t number;
  WORD extra = 0;  // which one of those that share these messages; 0: they have them alone
};
constexpr Button kButtons[] = {
    {WM_LBUTTONDOWN, VK_LBUTTON, ui::kLeftButton},
    {WM_RBUTTONDOWN, VK_RBUTTON, ui::kRightButton},
    {WM_MBUTTONDOWN, VK_MBUTTON, ui::kMiddleButton},
    {WM_XBUTTONDOWN, VK_XBUTTON1, ui::kFourthButton, XBUTTON1},
    {WM_XBUTTONDOWN, VK_XBUTTON2, ui::kFifthButton, XBUTTON2},
};
static_assert(WM_LBUTTONUP == WM_LBUTTONDOWN + 1 && WM_LBUTTONDBLCLK == WM_LBUTTONDOWN + 2);

std::int16_t HeldKeys() {
  return static_cast<std::int16_t>((GetKeyState(VK_SHIFT) < 0 ? ui::kShiftHeld : 0) +
                                   (GetKeyState(VK_CONTROL) < 0 ? ui::kCtrlHeld : 0) +
                                   (GetKeyState(VK_MENU) < 0 ? ui::kAltHeld : 0));
}

}  // namespace

std::int16_t ButtonsDown() noexcept {
  int down = 0;
  for (const Button& button : kButtons) down += GetKeyState(button.key) < 0 ? button.number : 0;
  return static_cast<std::int16_t>(down);
}

std::optional<ui::Fact> WindowPeer::FactOfMouse(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_CAPTURECHANGED) {
    if (std::exchange(pressed_, 0) == 0) return std::nullopt;
    return ui::MouseLost{};
  }
  for (const Button& button : kButtons) {
    if (message < button.down || message > button.down + 2) continue;
    if (button.extra != 0 && button.extra != GET_XBUTTON_WPARAM(wparam)) continue;
    const ui::MouseEvent event = {button.number, toolkit_.scale().ToTwips(GET_X_LPARAM(lparam)),
                                  toolkit_.scale().ToTwips(GET_Y_LPARAM(lparam))};
    // The second press of a double click comes as a message of its own.
    if (message != button.down + 1) {
      if (CapturesMouse() && pressed_ == 0) SetCapture(window_);
      if (CapturesMouse()) pressed_ |= button.number;
      return ui::MousePressed{event};
    }
    const int still_pressed = pressed_ & ~button.number;
    // Letting go of the mouse comes back as a message, which must find nothing pressed.
    if (std::exchange(pressed_, still_pressed) != 0 && still_pressed == 0) ReleaseCapture();
    return ui::MouseReleased{event};
  }
  return std::nullopt;
}

bool WindowPeer::TellKey(WPARAM key, LPARAM key_data) {
  const ui::KeyStroke stroke = {static_cast<char16_t>(key), HeldKeys()};
  return Tell(ui::KeyStruck{stroke, IsRepeated(key_data)});
}

}  // namespace quill::win32

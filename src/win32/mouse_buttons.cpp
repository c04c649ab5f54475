// The messages of the mouse's buttons, as one table.
#include "win32/mouse_buttons.h"

#include <windowsx.h>

#include <utility>

namespace quill::win32 {
namespace {

struct Button {
  UINT down;
  UINT double_click;
  UINT up;
  WORD extra;  // which one of those that share these messages; 0: they have them alone
  int key;
  std::int16_t number;

  [[nodiscard]] bool IsOf(UINT message, WPARAM wparam) const noexcept {
    return (message == down || message == double_click || message == up) &&
           (extra == 0 || extra == GET_XBUTTON_WPARAM(wparam));
  }
};
constexpr Button kButtons[] = {
    {WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_LBUTTONUP, 0, VK_LBUTTON, ui::kLeftButton},
    {WM_RBUTTONDOWN, WM_RBUTTONDBLCLK, WM_RBUTTONUP, 0, VK_RBUTTON, ui::kRightButton},
    {WM_MBUTTONDOWN, WM_MBUTTONDBLCLK, WM_MBUTTONUP, 0, VK_MBUTTON, ui::kMiddleButton},
    {WM_XBUTTONDOWN, WM_XBUTTONDBLCLK, WM_XBUTTONUP, XBUTTON1, VK_XBUTTON1, ui::kFourthButton},
    {WM_XBUTTONDOWN, WM_XBUTTONDBLCLK, WM_XBUTTONUP, XBUTTON2, VK_XBUTTON2, ui::kFifthButton},
};

std::int16_t ShiftState(WPARAM keys) {
  return static_cast<std::int16_t>(((keys & MK_SHIFT) != 0 ? ui::kShiftHeld : 0) +
                                   ((keys & MK_CONTROL) != 0 ? ui::kCtrlHeld : 0) +
                                   (GetKeyState(VK_MENU) < 0 ? ui::kAltHeld : 0));
}

}  // namespace

std::int16_t ButtonsDown() noexcept {
  int down = 0;
  for (const Button& button : kButtons) down += GetKeyState(button.key) < 0 ? button.number : 0;
  return static_cast<std::int16_t>(down);
}

std::optional<ui::Fact> MouseButtons::FactOf(HWND window, UINT message, WPARAM wparam,
                                             LPARAM lparam, const ScreenScale& scale,
                                             bool captures) {
  if (message == WM_CAPTURECHANGED) {
    if (std::exchange(pressed_, std::int16_t{0}) == 0) return std::nullopt;
    return ui::MouseLost{};
  }
  for (const Button& button : kButtons) {
    if (!button.IsOf(message, wparam)) continue;
    const ui::MouseEvent event = {button.number, ShiftState(wparam),
                                  scale.TwipsX(GET_X_LPARAM(lparam)),
                                  scale.TwipsY(GET_Y_LPARAM(lparam))};
    if (message != button.up) {
      if (captures && pressed_ == 0) SetCapture(window);
      if (captures) pressed_ = static_cast<std::int16_t>(pressed_ | button.number);
      return ui::MousePressed{event};
    }
    const int still_pressed = pressed_ & ~button.number;
    // Letting go of the mouse comes back as a message, which must find nothing pressed.
    if (std::exchange(pressed_, static_cast<std::int16_t>(still_pressed)) != 0 &&
        still_pressed == 0) {
      ReleaseCapture();
    }
    return ui::MouseReleased{event};
  }
  return std::nullopt;
}

}  // namespace quill::win32

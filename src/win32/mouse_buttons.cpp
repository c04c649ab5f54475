#include "win32/mouse_buttons.h"

#include <windowsx.h>

#include <utility>

namespace quill::win32 {
namespace {

std::int16_t ButtonOf(UINT message, WPARAM wparam) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONUP:
      return ui::kLeftButton;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_RBUTTONUP:
      return ui::kRightButton;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
    case WM_MBUTTONUP:
      return ui::kMiddleButton;
    case WM_XBUTTONDOWN:
    case WM_XBUTTONDBLCLK:
    case WM_XBUTTONUP:
      return GET_XBUTTON_WPARAM(wparam) == XBUTTON1 ? ui::kFourthButton : ui::kFifthButton;
    default:
      return 0;
  }
}

bool IsRelease(UINT message) {
  return message == WM_LBUTTONUP || message == WM_RBUTTONUP || message == WM_MBUTTONUP ||
         message == WM_XBUTTONUP;
}

std::int16_t ShiftState(WPARAM keys) {
  return static_cast<std::int16_t>(((keys & MK_SHIFT) != 0 ? 1 : 0) +
                                   ((keys & MK_CONTROL) != 0 ? 2 : 0) +
                                   (GetKeyState(VK_MENU) < 0 ? 4 : 0));
}

}  // namespace

std::int16_t ButtonsDown() noexcept {
  const auto down = [](int key, int button) { return GetKeyState(key) < 0 ? button : 0; };
  return static_cast<std::int16_t>(
      down(VK_LBUTTON, ui::kLeftButton) + down(VK_RBUTTON, ui::kRightButton) +
      down(VK_MBUTTON, ui::kMiddleButton) + down(VK_XBUTTON1, ui::kFourthButton) +
      down(VK_XBUTTON2, ui::kFifthButton));
}

std::optional<ui::Fact> MouseButtons::FactOf(HWND window, UINT message, WPARAM wparam,
                                             LPARAM lparam, const ScreenScale& scale,
                                             bool captures) {
  if (message == WM_CAPTURECHANGED) {
    if (std::exchange(pressed_, std::int16_t{0}) == 0) return std::nullopt;
    return ui::MouseLost{};
  }
  const std::int16_t button = ButtonOf(message, wparam);
  if (button == 0) return std::nullopt;
  const ui::MouseEvent event = {button, ShiftState(wparam), scale.TwipsX(GET_X_LPARAM(lparam)),
                                scale.TwipsY(GET_Y_LPARAM(lparam))};
  if (!IsRelease(message)) {
    if (captures) {
      if (pressed_ == 0) SetCapture(window);
      pressed_ = static_cast<std::int16_t>(pressed_ | button);
    }
    return ui::MousePressed{event};
  }
  if ((pressed_ & button) != 0) {
    pressed_ = static_cast<std::int16_t>(pressed_ & ~button);
    if (pressed_ == 0) ReleaseCapture();
  }
  return ui::MouseReleased{event};
}

}  // namespace quill::win32

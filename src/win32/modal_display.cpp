#include "win32/modal_display.h"

#include <utility>

namespace quill::win32 {

ModalDisplay::ModalDisplay(HWND window, HWND active_before)
    : window_(window), active_before_(active_before) {
  EnumThreadWindows(GetCurrentThreadId(), &HoldBack, reinterpret_cast<LPARAM>(this));
}

ModalDisplay::~ModalDisplay() {
  ReleaseOthers();
}

BOOL CALLBACK ModalDisplay::HoldBack(HWND other, LPARAM self) {
  auto& display = *reinterpret_cast<ModalDisplay*>(self);
  if (other == display.window_ || GetWindow(other, GW_OWNER) == display.window_ ||
      !IsWindowEnabled(other)) {
    return TRUE;
  }
  try {
    display.held_back_.push_back(other);
    EnableWindow(other, FALSE);
  } catch (...) {
    return FALSE;
  }
  return TRUE;
}

void ModalDisplay::ReleaseOthers() noexcept {
  const bool was_active = GetActiveWindow() == window_;
  for (const HWND other : std::exchange(held_back_, {})) {
    if (IsWindow(other)) EnableWindow(other, TRUE);
  }
  // Otherwise the system would bring some window of another program to the front.
  const HWND former = std::exchange(active_before_, nullptr);
  if (was_active && former != nullptr && IsWindow(former) && IsWindowVisible(former)) {
    SetActiveWindow(former);
  }
}

void ModalDisplay::Run() {
  while (!ended_) {
    MSG message;
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got == 0) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    if (got < 0) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void ModalDisplay::End() noexcept {
  ended_ = true;
  // The call that ended it may have come while the loop was asleep.
  PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

}  // namespace quill::win32

// Which windows of the thread wait for the one that is shown, and which have to stay usable.
#include "win32/modal_display.h"

#include <array>
#include <utility>

namespace quill::win32 {

namespace {

// The list of a drop-down box is a child of the desktop, and an input method has windows that no
// input goes to: both come up among the thread's windows, and serve those that take input.
bool ServesOthers(HWND window) noexcept {
  if ((GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0) return true;
  if ((GetClassLongW(window, GCL_STYLE) & CS_IME) != 0) return true;
  std::array<wchar_t, 8> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return lstrcmpiW(name.data(), L"IME") == 0;
}

// The box is looked for among the windows: GetLastActivePopup tells of activation only, and gives
// the owner while a box is open behind which another one has just closed.
struct BoxSearch {
  HWND owner;
  HWND found;
};

BOOL CALLBACK IsNoBox(HWND window, LPARAM parameter) noexcept {
  auto& search = *reinterpret_cast<BoxSearch*>(parameter);
  // A tooltip has no caption.
  const bool is_box = GetWindow(window, GW_OWNER) == search.owner && IsWindowVisible(window) &&
                      (GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
  // A box that waits may have one of its own, as a file dialog that asks whether to overwrite.
  if (is_box) search.found = IsWindowEnabled(window) ? window : OpenBoxOf(window);
  return search.found != nullptr ? FALSE : TRUE;
}

}  // namespace

HWND OpenBoxOf(HWND owner) noexcept {
  BoxSearch search = {owner, nullptr};
  EnumThreadWindows(GetCurrentThreadId(), &IsNoBox, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

ModalDisplay::~ModalDisplay() {
  ReleaseOthers();
}

void ModalDisplay::HoldBackOthers() noexcept {
  EnumThreadWindows(GetCurrentThreadId(), &HoldBack, reinterpret_cast<LPARAM>(this));
  // A box without an owner, from inside which the window was opened, has it wait like all others.
  if (OpenBoxOf(window_) == nullptr) EnableWindow(window_, TRUE);
}

BOOL CALLBACK ModalDisplay::HoldBack(HWND other, LPARAM self) noexcept {
  auto& display = *reinterpret_cast<ModalDisplay*>(self);
  if (other == display.window_ || !IsWindowEnabled(other) || ServesOthers(other)) return TRUE;
  if (GetWindow(other, GW_OWNER) == display.window_) return TRUE;
  try {
    // Noted first: whatever is disabled is enabled again.
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

void ModalDisplay::Run() const {
  while (!ended_) {
    MSG message;
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got == 0) {
      // Taken once, it would be lost to the loops further out.
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    if (got < 0) return;  // an error, which would only come again
    // The host's hooks see it as they do in a system dialog.
    if (CallMsgFilterW(&message, MSGF_DIALOGBOX)) continue;
    // Not IsDialogMessage: where keys move the focus is the model's.
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

// One modal display of a form: its message loop, and the thread's other windows that wait for it.
#pragma once

#include <windows.h>

#include <vector>

namespace quill::win32 {

// The box that takes the operator's input in place of `owner`: one of its own, or a box on that
// box; null: none.
[[nodiscard]] HWND OpenBoxOf(HWND owner) noexcept;

class ModalDisplay {
 public:
  // `window` is shown. `active_before` is the window that the operator was in until then; null:
  // none of this thread.
  ModalDisplay(HWND window, HWND active_before) noexcept
      : window_(window), active_before_(active_before) {}
  ~ModalDisplay();
  ModalDisplay(const ModalDisplay&) = delete;
  ModalDisplay& operator=(const ModalDisplay&) = delete;

  // Has the thread's other windows wait. They hear of it, and may end the display.
  void HoldBackOthers() noexcept;
  // Returns when the display has ended, or when the thread is to quit, which the outer loops then
  // learn as well.
  void Run() const;
  void End() noexcept;
  [[nodiscard]] bool ended() const noexcept { return ended_; }
  // Lets the other windows take input again, and the operator's former window be the active one.
  void ReleaseOthers() noexcept;

  [[nodiscard]] HWND window() const noexcept { return window_; }

 private:
  static BOOL CALLBACK HoldBack(HWND other, LPARAM self) noexcept;

  HWND window_;
  HWND active_before_;
  std::vector<HWND> held_back_;
  bool ended_ = false;
};

}  // namespace quill::win32

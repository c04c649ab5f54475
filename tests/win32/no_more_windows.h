// While it exists, windows cannot be made on this thread, as when the system has run out of them: a
// failure that tests and robots can bring about from outside the plug-in. One at a time.
#pragma once

#include <windows.h>

namespace quill::host {

class NoMoreWindows {
 public:
  // The first `allowed` windows can still be made; then none can, or all but one.
  explicit NoMoreWindows(int allowed = 0, bool refuses_one = false)
      : hook_(SetWindowsHookExW(WH_CBT, &Refuse, nullptr, GetCurrentThreadId())) {
    state = {allowed, refuses_one, 0};
  }
  ~NoMoreWindows() { UnhookWindowsHookEx(hook_); }
  NoMoreWindows(const NoMoreWindows&) = delete;
  NoMoreWindows& operator=(const NoMoreWindows&) = delete;

  [[nodiscard]] int refused() const noexcept { return state.refused; }

 private:
  struct State {
    int allowed;
    bool refuses_one;
    int refused;
  };
  static inline State state{};

  static LRESULT CALLBACK Refuse(int code, WPARAM window, LPARAM about) {
    if (code == HCBT_CREATEWND && --state.allowed < 0 &&
        (!state.refuses_one || state.refused == 0)) {
      ++state.refused;
      SetLastError(ERROR_NO_MORE_USER_HANDLES);
      return 1;
    }
    return CallNextHookEx(nullptr, code, window, about);
  }

  HHOOK hook_;
};

}  // namespace quill::host

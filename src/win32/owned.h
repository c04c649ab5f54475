// Owners of the system's handles, one type for all kinds, each given back in its own way; and what
// has to be done at the end of a scope.
#pragma once

#include <memory>
#include <type_traits>
#include <utility>

#include <windows.h>

namespace quill::win32 {

struct GiveBack {
  void operator()(HANDLE handle) const noexcept { ::CloseHandle(handle); }  // file, thread
  void operator()(HKEY key) const noexcept { ::RegCloseKey(key); }
  void operator()(HWND window) const noexcept { ::DestroyWindow(window); }
  void operator()(HMENU menu) const noexcept { ::DestroyMenu(menu); }
  void operator()(HICON icon) const noexcept { ::DestroyIcon(icon); }
  void operator()(HFONT font) const noexcept { ::DeleteObject(font); }
  void operator()(HBRUSH brush) const noexcept { ::DeleteObject(brush); }
  void operator()(HBITMAP bitmap) const noexcept { ::DeleteObject(bitmap); }
  void operator()(HDC memory) const noexcept { ::DeleteDC(memory); }  // of CreateCompatibleDC
};

// Null: nothing. A file that could not be opened is INVALID_HANDLE_VALUE, which is not null and
// must not come here.
template <class Handle>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, GiveBack>;

// Runs `act`, which throws nothing, when the scope is left.
template <class Act>
class AtEnd {
 public:
  explicit AtEnd(Act act) : act_(std::move(act)) {}
  ~AtEnd() { act_(); }
  AtEnd(const AtEnd&) = delete;
  AtEnd& operator=(const AtEnd&) = delete;

 private:
  Act act_;
};

}  // namespace quill::win32

// An operator's scheme of high contrast, for as long as it exists: the system's colours are those
// of the scheme, and the library is told by the system that one is in use.
//
// For looking at the dialog only: the whole machine changes its colours. One at a time.
#pragma once

#include <windows.h>

#include <array>

namespace quill::host {

class HighContrast {
 public:
  // `library` asks through its import of SystemParametersInfoW, which is redirected. `form` is told
  // of the change, and of its end.
  HighContrast(HMODULE library, HWND form);
  ~HighContrast();
  HighContrast(const HighContrast&) = delete;
  HighContrast& operator=(const HighContrast&) = delete;

 private:
  static constexpr int kColours = COLOR_MENUBAR + 1;

  void Tell(const std::array<COLORREF, kColours>& colours) const;

  HWND form_;
  FARPROC* import_ = nullptr;  // null: the library does not ask
  FARPROC former_ = nullptr;
  std::array<COLORREF, kColours> before_{};
};

}  // namespace quill::host

// Texts as the system's wide strings; both are sequences of 16-bit units.
#pragma once

#include <windows.h>

#include <string>

#include "support/text.h"
#include "ui/controls.h"

namespace quill::win32 {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

// Ends at the first zero unit, as every consumer of such strings sees it. Valid as long as `text`.
[[nodiscard]] inline const wchar_t* Wide(const Text& text) noexcept {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}

[[nodiscard]] inline Text FromWide(std::wstring_view text) {
  return Text(text.begin(), text.end());
}

// The system numbers alignments alike for its static texts, for its text fields and for drawing.
[[nodiscard]] constexpr DWORD AlignmentStyle(ui::Alignment alignment) noexcept {
  static_assert(SS_CENTER == ES_CENTER && SS_CENTER == DT_CENTER && SS_LEFT == ES_LEFT);
  static_assert(SS_RIGHT == ES_RIGHT && SS_RIGHT == DT_RIGHT && SS_LEFT == DT_LEFT);
  constexpr DWORD kStyles[] = {SS_LEFT, SS_RIGHT, SS_CENTER};  // in the order of ui::Alignment
  return kStyles[static_cast<std::size_t>(alignment)];
}

// The text of a window; empty for one that has none.
[[nodiscard]] inline Text WindowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return FromWide(text);
}

}  // namespace quill::win32

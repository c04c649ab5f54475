// Texts as the system's wide strings; both are sequences of 16-bit units.
#pragma once

#include <windows.h>

#include <string>

#include "support/text.h"

namespace quill::win32 {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

// Ends at the first zero unit, as every consumer of such strings sees it. Valid as long as `text`.
[[nodiscard]] inline const wchar_t* Wide(const Text& text) noexcept {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}

[[nodiscard]] inline Text FromWide(std::wstring_view text) {
  return Text(text.begin(), text.end());
}

// The text of a window; empty for one that has none.
[[nodiscard]] Text WindowText(HWND window);

}  // namespace quill::win32

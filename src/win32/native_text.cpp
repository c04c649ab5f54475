#include "win32/native_text.h"

namespace quill::win32 {

Text WindowText(HWND window) {
  const int length = GetWindowTextLengthW(window);
  if (length <= 0) return {};
  std::wstring buffer(static_cast<std::size_t>(length) + 1, L'\0');
  const int copied = GetWindowTextW(window, buffer.data(), length + 1);
  return FromWide({buffer.data(), static_cast<std::size_t>(copied)});
}

}  // namespace quill::win32

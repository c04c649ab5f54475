// The system converts byte by byte; what it has no single-byte page for is read as Windows-1252.
#include "win32/system_code_page.h"

#include <windows.h>

namespace quill::win32 {

CodePage SystemCodePage() {
  return CodePageOfNumber(GetACP());
}

CodePage CodePageOfNumber(unsigned number) {
  const auto windows_1252 = [] { return CodePage(CodePage::Windows1252Units()); };
  CPINFO info = {};
  if (!GetCPInfo(number, &info) || info.MaxCharSize != 1) return windows_1252();

  std::array<char16_t, 256> units{};
  for (unsigned byte = 0; byte < units.size(); ++byte) {
    const char source = static_cast<char>(byte);
    wchar_t unit = 0;
    if (MultiByteToWideChar(number, 0, &source, 1, &unit, 1) != 1) return windows_1252();
    if (byte < 128 && unit != byte) return windows_1252();
    units[byte] = unit;
  }
  return CodePage(units);
}

}  // namespace quill::win32

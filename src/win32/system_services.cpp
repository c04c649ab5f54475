// Paths of modules in as many units as a caller has room for, and the code page byte by byte.
#include "win32/system_services.h"

#include <algorithm>
#include <string>

#include "win32/native_text.h"

namespace quill::win32 {
namespace {

constexpr std::size_t kLongestPath = 32768;  // of all paths, in units

// At most `buffer_size` units of the module's path.
Text ModulePath(HMODULE module, std::size_t buffer_size) {
  std::wstring path(std::min(buffer_size, kLongestPath), L'\0');
  path.resize(GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
  // A path that was cut ends with the zero that took its last place.
  while (!path.empty() && path.back() == L'\0') path.pop_back();
  return FromWide(path);
}

}  // namespace

HINSTANCE ThisModule() noexcept {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&ThisModule), &module);
  return module;
}

Text ThisModulePath() {
  return ModulePath(ThisModule(), kLongestPath);
}

Text Win32ProcessPaths::ExecutablePath(std::size_t buffer_size) {
  return ModulePath(nullptr, buffer_size);
}

Text Win32ProcessPaths::PluginFolder() {
  const Text path = ThisModulePath();
  const std::size_t end = path.rfind(u'\\');
  return path.substr(0, end == Text::npos ? 0 : end);
}

std::uint64_t Win32Clock::Ticks() {
  LARGE_INTEGER ticks = {};
  QueryPerformanceCounter(&ticks);
  return static_cast<std::uint64_t>(ticks.QuadPart);
}

int Win32Clock::MinuteOfDay() {
  SYSTEMTIME now = {};
  GetLocalTime(&now);
  return now.wHour * 60 + now.wMinute;
}

CodePage SystemCodePage() {
  return CodePageOfNumber(GetACP());
}

CodePage CodePageOfNumber(unsigned number) {
  CPINFO info = {};
  bool is_usable = GetCPInfo(number, &info) && info.MaxCharSize == 1;
  std::array<char16_t, 256> units{};
  for (unsigned byte = 0; is_usable && byte < units.size(); ++byte) {
    const char source = static_cast<char>(byte);
    // Without the flag that refuses bytes which the page leaves undefined: Windows has controls for
    // them.
    wchar_t unit = 0;
    is_usable =
        MultiByteToWideChar(number, 0, &source, 1, &unit, 1) == 1 && (byte >= 128 || unit == byte);
    units[byte] = unit;
  }
  return is_usable ? CodePage(units) : CodePage::Windows1252();
}

}  // namespace quill::win32

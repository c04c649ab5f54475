// Paths of modules, in as many units as a caller has room for.
#include "win32/win32_process_paths.h"

#include <windows.h>

#include <algorithm>
#include <string>

#include "win32/native_text.h"
#include "win32/this_module.h"

namespace quill::win32 {
namespace {

// At most `buffer_size` units of the module's path.
std::wstring ModulePath(HMODULE module, std::size_t buffer_size) {
  constexpr std::size_t kLongestPath = 32768;  // of all paths, in units
  std::wstring path(std::min(buffer_size, kLongestPath), L'\0');
  const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
  path.resize(std::min<std::size_t>(length, path.size()));
  // A path that was cut ends with the zero that took its last place.
  while (!path.empty() && path.back() == L'\0') path.pop_back();
  return path;
}

constexpr std::size_t kAnyLength = static_cast<std::size_t>(-1);

}  // namespace

Text ThisModulePath() {
  return FromWide(ModulePath(ThisModule(), kAnyLength));
}

Text Win32ProcessPaths::ExecutablePath(std::size_t buffer_size) {
  return FromWide(ModulePath(nullptr, buffer_size));
}

Text Win32ProcessPaths::PluginFolder() {
  Text path = ThisModulePath();
  const std::size_t end = path.rfind(u'\\');
  path.resize(end == Text::npos ? 0 : end);
  return path;
}

}  // namespace quill::win32

// The module that this code is linked into: the plug-in's library, or a program that tests it.
#pragma once

#include <windows.h>

// The linker's name for where the module lies in memory.
extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier)

namespace quill::win32 {

[[nodiscard]] inline HINSTANCE ThisModule() noexcept {
  return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

}  // namespace quill::win32

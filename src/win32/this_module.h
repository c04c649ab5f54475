// The module that this code is linked into: the plug-in's library, or a program that tests it.
#pragma once

#include <windows.h>

namespace quill::win32 {

[[nodiscard]] HINSTANCE ThisModule() noexcept;

}  // namespace quill::win32

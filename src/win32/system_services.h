// What the system tells about the process and the machine: paths, clock and code page.
#pragma once

#include <windows.h>

#include "support/clock.h"
#include "support/code_page.h"
#include "support/host_environment.h"

namespace quill::win32 {

// The module that this code is linked into: the plug-in's library, or a program that tests it.
[[nodiscard]] HINSTANCE ThisModule() noexcept;

// Full path of the file of that module.
[[nodiscard]] Text ThisModulePath();

class Win32ProcessPaths final : public ProcessPaths {
 public:
  Text ExecutablePath(std::size_t buffer_size) override;
  Text PluginFolder() override;
};

class Win32Clock final : public Clock {
 public:
  std::uint64_t Ticks() override;  // of the performance counter
  int MinuteOfDay() override;
};

// The system's ANSI code page when it is a single-byte one that holds ASCII, else Windows-1252.
[[nodiscard]] CodePage SystemCodePage();
// The same for a given code page number.
[[nodiscard]] CodePage CodePageOfNumber(unsigned number);

}  // namespace quill::win32

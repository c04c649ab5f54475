// Where the process and this library lie.
#pragma once

#include "support/host_environment.h"

namespace quill::win32 {

// Full path of the file of the module that this code is linked into.
[[nodiscard]] Text ThisModulePath();

class Win32ProcessPaths final : public ProcessPaths {
 public:
  Text ExecutablePath(std::size_t buffer_size) override;
  Text PluginFolder() override;
};

}  // namespace quill::win32

// Where the plug-in lives: the host's root folder, found from the process that loaded it.
#pragma once

#include <cstddef>

#include "support/text.h"

namespace quill {

// What the platform tells about the process.
class ProcessPaths {
 public:
  virtual ~ProcessPaths() = default;
  // Full path of the process's executable, at most `buffer_size` units of it; empty when the
  // platform cannot tell.
  virtual Text ExecutablePath(std::size_t buffer_size) = 0;
  // Folder of the plug-in's own library, without a trailing backslash.
  virtual Text PluginFolder() = 0;
};

// The folder of the executable, without a trailing backslash; empty for a path without any
// backslash. Fails with kSubscriptOutOfRange when the platform cannot tell the path.
[[nodiscard]] Text HostFolder(ProcessPaths& paths);

// True when "VB6.EXE" occurs anywhere in the executable's path, in any letter case: the process is
// the development environment.
[[nodiscard]] bool IsDevelopmentHost(ProcessPaths& paths);

// The root folder of the host: HostFolder, or under the development environment the plug-in's own
// folder with every "\Plugins", then "\plugins", then "\dlls\Quillstart" taken out.
[[nodiscard]] Text ResolveHostRoot(ProcessPaths& paths);

}  // namespace quill

// The plug-in's library as this host has it installed for the run: registered for the time it is
// needed, and left as it was found.
#pragma once

#include "support/text.h"
#include "win32/com/automation.h"

namespace quill::host {

class PluginLibrary {
 public:
  // Registers the library at `path` through its own entry point, for the machine or, where that is
  // not allowed, for the user. Fails with a RuntimeError that says what went wrong.
  explicit PluginLibrary(const Text& path);
  ~PluginLibrary();
  PluginLibrary(const PluginLibrary&) = delete;
  PluginLibrary& operator=(const PluginLibrary&) = delete;

  // What the library itself answers: nothing keeps it loaded.
  [[nodiscard]] bool CanUnload() const noexcept;

 private:
  HMODULE module_ = nullptr;
  bool for_user_ = false;
};

// The library beside this program: kvrrcBHDGS.dll.
[[nodiscard]] Text LibraryBesideProgram();

}  // namespace quill::host

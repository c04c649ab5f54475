// The plug-in's library as this host has it installed for the run: registered for the time it is
// needed, and left as it was found.
#pragma once

#include "host/win32/loaded_library.h"

namespace quill::host {

class PluginLibrary final : public LoadedLibrary {
 public:
  // Registers the library at `path` through its own entry point, for the machine or, where that is
  // not allowed, for the user. Fails with a RuntimeError that says what went wrong.
  explicit PluginLibrary(const Text& path);
  ~PluginLibrary() override;

  // By its name, as any host creates it.
  [[nodiscard]] com::LateBound MakePlugin() const override;

 private:
  bool for_user_ = false;
};

// The library beside this program: kvrrcBHDGS.dll.
[[nodiscard]] Text LibraryBesideProgram();

}  // namespace quill::host

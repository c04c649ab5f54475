// The plug-in's library in this process: loaded, called through its entry points, and installed for
// as long as this host needs it.
#pragma once

#include "com/automation.h"
#include "com/late_bound.h"
#include "support/text.h"

namespace quill::host {

// Loaded by its path, and nothing else: what a host does that wants no registry.
class LoadedLibrary {
 public:
  // Fails with a RuntimeError that names the path.
  explicit LoadedLibrary(const Text& path);
  virtual ~LoadedLibrary();
  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;

  // An entry point; fails with a RuntimeError when it is not exported.
  template <class Function>
  [[nodiscard]] Function Entry(const char* name) const {
    return reinterpret_cast<Function>(FindEntry(name));
  }
  // The library's own answer: nothing keeps it loaded.
  [[nodiscard]] bool CanUnload() const;
  // A new plug-in object, made by the library's own class factory.
  [[nodiscard]] virtual com::LateBound MakePlugin() const;

 private:
  [[nodiscard]] void* FindEntry(const char* name) const;

  HMODULE module_;
};

// Registered while it exists.
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

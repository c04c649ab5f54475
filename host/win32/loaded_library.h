// The plug-in's library in this process, by its own entry points: loaded here, and nothing else.
#pragma once

#include "com/automation.h"
#include "com/late_bound.h"
#include "support/text.h"

namespace quill::host {

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
  // What the library itself answers: nothing keeps it loaded.
  [[nodiscard]] bool CanUnload() const;
  // A new plug-in object, made by the library's own class factory.
  [[nodiscard]] virtual com::LateBound MakePlugin() const;

 private:
  [[nodiscard]] void* FindEntry(const char* name) const;

  HMODULE module_;
};

}  // namespace quill::host

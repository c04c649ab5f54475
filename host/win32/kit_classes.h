// Makes the host's service objects creatable by name inside this process, as long as it lives: the
// classes in memory, their names in the registry.
#pragma once

#include <array>
#include <string>

#include "host/win32/kit_object.h"

namespace quill::host {

class KitClasses {
 public:
  // Fails with a RuntimeError when the names cannot be written for the machine or for the user.
  explicit KitClasses(const KitServices& services);
  ~KitClasses();
  KitClasses(const KitClasses&) = delete;
  KitClasses& operator=(const KitClasses&) = delete;

 private:
  void Withdraw() noexcept;

  std::array<DWORD, 2> classes_{};
  std::array<HKEY, 2> roots_{};
};

}  // namespace quill::host

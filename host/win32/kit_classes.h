// The classes of the host's service objects: how each is made, and how they become creatable by
// name inside this process, as long as it lives.
#pragma once

#include <array>
#include <span>

#include "host/win32/kit_object.h"
#include "server/class_registration.h"

namespace quill::host {

struct KitClass {
  com::RegisteredClass registered;
  com::ComPtr<IDispatch> (*make)(const KitServices& services);
};
// The file kit and the memory kit.
[[nodiscard]] std::span<const KitClass, 2> KitClassTable() noexcept;

[[nodiscard]] com::ComPtr<IClassFactory> MakeKitFactory(const KitServices& services,
                                                        const KitClass& kit);

// The classes in memory, their names in the registry. Names that lead to other kits lead there
// again afterwards.
class KitClasses {
 public:
  // Fails with a RuntimeError when the names cannot be written for the machine or for the user.
  explicit KitClasses(const KitServices& services);
  ~KitClasses();
  KitClasses(const KitClasses&) = delete;
  KitClasses& operator=(const KitClasses&) = delete;

 private:
  struct Offered {
    DWORD class_object = 0;
    bool is_named = false;
    com::RegistrationScope scope = com::RegistrationScope::kMachine;
    Text former_id;  // what the name led to before
  };
  KitClasses() = default;
  static void Name(Offered& offered, const KitClass& kit);

  std::array<Offered, 2> offered_;
};

}  // namespace quill::host

// The reference host's service objects as the plug-in sees them: automation objects that are called
// by name. They can check how they are called and note every breach of the contract. Their classes
// become creatable by name inside this process, as long as it lives.
#pragma once

#include <array>
#include <functional>
#include <span>

#include "com/automation.h"
#include "com/com_ptr.h"
#include "host/win32/contract_log.h"
#include "server/registration.h"
#include "support/file_kit.h"

namespace quill::host {

// What an object created by name is made of. Everything outlives every object.
struct KitServices {
  FileKit& file_kit;
  ContractLog& contract;
  DWORD thread;  // the only one from which calls may come
  // Told the name of an object that is about to be created; may throw to refuse it.
  std::function<void(TextView prog_id)> before_creation = {};
  // Whether the host is in a call of the plug-in, which is when calls may come; none: not checked.
  std::function<bool()> is_call_running = {};
  // False: calls are taken as they come, from whomever, scripts too; nothing is noted.
  bool are_calls_checked = true;
};

// How many of the host's objects the plug-in holds.
[[nodiscard]] long LivingKitObjects() noexcept;

// An object that the plug-in has let go stays for a while, so that its being used or released once
// more is noted as a breach and harms nothing. This ends all of those, when nobody can use them.
void ForgetReleasedKitObjects() noexcept;

// How a service object is made.
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

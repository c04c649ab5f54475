// The reference host's service objects as the plug-in sees them: automation objects that are called
// by name. They can check how they are called and note every breach of the contract.
#pragma once

#include <functional>

#include "com/automation.h"
#include "com/com_ptr.h"
#include "host/win32/contract_log.h"
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

[[nodiscard]] com::ComPtr<IDispatch> MakeFileKitObject(const KitServices& services);
[[nodiscard]] com::ComPtr<IDispatch> MakeMemoryKitObject(const KitServices& services);

}  // namespace quill::host

// One use of the plug-in by this host, from its creation to its end: the service objects by name,
// the plug-in object, and the contract between the two sides watched all the while. One at a time
// in a process; everything happens on the thread that made it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "com/com_ptr.h"
#include "com/late_bound.h"
#include "host/kit/error_journal.h"
#include "host/kit/file_kit.h"
#include "host/kit/file_storage.h"
#include "host/story/stage.h"
#include "host/watch/watched_file_kit.h"
#include "host/win32/contract_log.h"
#include "host/win32/kit_object.h"
#include "host/win32/plugin_library.h"
#include "win32/win32_file_system.h"

namespace quill::host {

// The operator's rights as this host's collection: keyed by name without regard to letter case,
// with Item and Count, failing with "invalid procedure call" for a missing key.
[[nodiscard]] com::ComPtr<IDispatch> MakeRightsCollection(std::vector<Right> rights);

// The plug-in object as the host holds it: called late-bound as a host in a script language calls
// it.
class PluginClient {
 public:
  explicit PluginClient(com::LateBound plugin) : plugin_(std::move(plugin)) {}

  [[nodiscard]] Text DllVersion();
  // A field of the information record: text, "true" or "false", the elements of an array joined by
  // "|", or "empty".
  [[nodiscard]] Text Field(const Text& name);
  void SetPrivis(const std::vector<Right>& rights, bool is_super_admin);
  // `target` becomes an array of variants; returns when the dialog has been hidden or closed.
  void LoadInterface(std::int32_t index, const std::vector<Text>& target);
  void RemoteData(const Text& data);
  void HideInterface();

 private:
  com::LateBound plugin_;
};

class PluginSession {
 public:
  // Library and log outlive the session. `root` is the host's root folder.
  PluginSession(const LoadedLibrary& library, ContractLog& contract, const Text& root);
  // Releases the plug-in and notes what of the contract was not kept.
  ~PluginSession();
  PluginSession(const PluginSession&) = delete;
  PluginSession& operator=(const PluginSession&) = delete;

  // A call of the host; the plug-in is created by the first one.
  template <class Call>
  auto HostCall(Call&& call) {
    BeginCall();
    const auto end = [this](void*) { --running_calls_; };
    const std::unique_ptr<void, decltype(end)> running(this, end);
    return call(Plugin());
  }

  [[nodiscard]] DiskStorage& storage() noexcept { return storage_; }
  [[nodiscard]] KitWatch& kit_watch() noexcept { return kit_watch_; }

 private:
  void BeginCall();
  PluginClient& Plugin();
  void KitIsCreated(TextView prog_id);

  const LoadedLibrary& library_;
  ContractLog& contract_;
  const DWORD thread_ = ::GetCurrentThreadId();
  win32::Win32FileSystem files_;
  DiskStorage storage_;
  ErrorJournal journal_;
  HostFileKit kit_{storage_, journal_};
  KitWatch kit_watch_;
  WatchedFileKit watched_kit_{kit_, kit_watch_};
  KitClasses classes_;
  std::optional<PluginClient> plugin_;
  std::vector<Text> created_kits_;
  int running_calls_ = 0;
};

}  // namespace quill::host

// What of the contract is checked at the beginning of each call and at the end.
#include "host/win32/plugin_session.h"

#include <filesystem>
#include <string>

#include "plugin/host_services.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

BOOL CALLBACK CountDialog(HWND window, LPARAM count) {
  if (::GetPropW(window, L"ControlName") != nullptr) ++*reinterpret_cast<int*>(count);
  return TRUE;
}

}  // namespace

void PluginSession::BeginCall() {
  if (::GetCurrentThreadId() != thread_) {
    contract_.Note(Side::kHost, "called the plug-in on another thread than its own");
  }
  ++running_calls_;
}

PluginSession::PluginSession(const LoadedLibrary& library, ContractLog& contract, const Text& root)
    : library_(library),
      contract_(contract),
      storage_([](TextView path) { return std::filesystem::path(Text(path)); }),
      journal_(root, files_, storage_),
      classes_({watched_kit_, contract, thread_, [this](TextView kit) { KitIsCreated(kit); },
                [this] { return running_calls_ != 0; }}) {}

PluginSession::~PluginSession() {
  if (running_calls_ != 0) {
    contract_.Note(Side::kHost, "let the plug-in go while a call of it was running");
  }
  plugin_.reset();
  if (!library_.CanUnload()) {
    contract_.Note(Side::kPlugin, "the library cannot be unloaded after its last object was freed");
  }
  if (const long left = LivingKitObjects(); left != 0) {
    contract_.Note(Side::kPlugin,
                   "holds " + std::to_string(left) + " of the host's service objects at the end");
  }
  int windows = 0;
  ::EnumThreadWindows(thread_, &CountDialog, reinterpret_cast<LPARAM>(&windows));
  if (windows != 0) contract_.Note(Side::kPlugin, "leaves its dialog behind");
  ForgetReleasedKitObjects();
}

PluginClient& PluginSession::Plugin() {
  if (!plugin_) plugin_.emplace(library_.MakePlugin());
  return *plugin_;
}

void PluginSession::KitIsCreated(TextView prog_id) {
  if (running_calls_ == 0) {
    contract_.Note(Side::kPlugin, "creates " + ToUtf8(prog_id) + " while the host calls nothing");
  }
  const bool is_memory_kit = prog_id == kMemoryKitProgId;
  if (created_kits_.size() != (is_memory_kit ? 1u : 0u)) {
    contract_.Note(Side::kPlugin, "creates " + ToUtf8(prog_id) +
                                      " out of turn: the file kit comes first, each comes once");
  }
  created_kits_.emplace_back(prog_id);
  if (kit_watch_.TakeFault(is_memory_kit ? u"CreateMemoryKit" : u"CreateFileKit")) {
    throw RuntimeError(ErrorNumber::kCannotCreateObject);
  }
}

}  // namespace quill::host

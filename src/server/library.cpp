// The library's life: which thread it belongs to, when it begins and when it may end.
#include "server/library.h"

#include "com/bstr.h"
#include "com/com_error.h"
#include "com/identifiers.h"
#include "com/object.h"
#include "server/com_host_services.h"
#include "support/runtime_error.h"
#include "win32/system_services.h"
#include "win32/win32_file_system.h"
#include "win32/win32_toolkit.h"

namespace quill::com {

// The platform and, on top of it, the main module; destroyed the other way round.
struct Library::Runtime {
  win32::Win32Toolkit toolkit;
  win32::Win32FileSystem files;
  win32::Win32ProcessPaths paths;
  win32::Win32Clock clock;
  CodePage code_page = win32::SystemCodePage();
  ComHostServices services;
  mdlBHDGS module{{toolkit, files, clock, code_page}, paths, services};
};

constexpr Library::Library() noexcept = default;

// Complete before the loader runs any code of the library.
constinit Library Library::only_;

// Runs under the loader's lock. Whatever ReadyToUnload has not ended by then is still in use; it
// cannot be ended there, so it is left.
Library::~Library() {
  (void)runtime_.release();
  (void)types_.Detach();
}

Library& Library::Get() noexcept {
  return only_;
}

bool Library::ReadyToUnload() {
  if (is_ending_ || LibraryUse::Any()) return false;
  // With no object left no member is running, so nothing of the plug-in is on the stack.
  if (!Claim()) return false;
  std::unique_ptr<Runtime> ending = std::move(runtime_);
  types_.Reset();
  // One of the host's objects may ask again as it is let go.
  is_ending_ = true;
  ending.reset();
  is_ending_ = false;
  // The host's objects may have come back while they were let go.
  if (LibraryUse::Any() || runtime_ != nullptr) return false;
  Disown();
  if (!is_held_.exchange(false)) return true;
  if (LibraryUse::Any()) {  // another thread has come
    is_held_ = true;
    return false;
  }
  ::FreeLibrary(win32::ThisModule());  // not the last reference: whoever asks has one
  return true;
}

void Library::StayLoaded() noexcept {
  if (is_held_.exchange(true)) return;
  HMODULE self = nullptr;
  // Adds a reference, which ReadyToUnload gives back.
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCWSTR>(&only_),
                       &self);
}

bool Library::Claim() noexcept {
  const DWORD caller = ::GetCurrentThreadId();
  ::AcquireSRWLockExclusive(&owner_lock_);
  const bool has_ended =
      // The handle of a thread is signalled once the thread has ended.
      owner_ == 0 || ::WaitForSingleObject(owner_thread_.get(), 0) == WAIT_OBJECT_0;
  if (owner_ != caller && has_ended) {
    if (win32::Owned<HANDLE> thread(::OpenThread(SYNCHRONIZE, FALSE, caller)); thread != nullptr) {
      owner_thread_ = std::move(thread);
      owner_ = caller;
      // Windows end with their thread, and the host's objects with its apartment: there is nothing
      // left that could be ended properly.
      (void)runtime_.release();
    }
  }
  const bool is_owner = owner_ == caller;
  ::ReleaseSRWLockExclusive(&owner_lock_);
  return is_owner;
}

void Library::Disown() noexcept {
  ::AcquireSRWLockExclusive(&owner_lock_);
  owner_thread_.reset();
  owner_ = 0;
  ::ReleaseSRWLockExclusive(&owner_lock_);
}

mdlBHDGS& Library::Module() {
  if (!Claim()) throw ErrorOf(RPC_E_WRONG_THREAD);
  if (runtime_ == nullptr) runtime_ = std::make_unique<Runtime>();
  return runtime_->module;
}

ComPtr<ITypeInfo> Library::TypeInfo(REFGUID id) {
  if (!types_) {
    const Text path = win32::ThisModulePath();
    // Other kinds of loading may register it.
    ThrowIfFailed(::LoadTypeLibEx(WideOf(path), REGKIND_NONE, types_.Receive()));
  }
  ComPtr<ITypeInfo> info;
  ThrowIfFailed(types_->GetTypeInfoOfGuid(id, info.Receive()));
  return info;
}

}  // namespace quill::com

// The loaded library: its type information, and the one main module with the platform beneath it.
//
// Everything belongs to the user-interface thread that first used the library; others are refused
// while it lives.
#pragma once

#include <atomic>
#include <memory>

#include "com/automation.h"
#include "com/com_ptr.h"
#include "plugin/mdlBHDGS.h"
#include "win32/owned.h"

namespace quill::com {

class Library {
 public:
  [[nodiscard]] static Library& Get() noexcept;

  // True when nothing keeps the library loaded. The main module has then ended, with a dialog that
  // is not shown, the host's objects and everything native: what is left may be unloaded, or used
  // again from a fresh start. False on another thread than theirs.
  [[nodiscard]] bool ReadyToUnload();

  // Holds a reference to the library's own file until ReadyToUnload says true: COM unloads
  // libraries at the last CoUninitialize without asking, while a host may still hold objects and
  // the dialog's window may be there.
  void StayLoaded() noexcept;

  // The main module, made on first use. RPC_E_WRONG_THREAD on a thread that may not use it.
  [[nodiscard]] mdlBHDGS& Module();

  // What the type library in this file's resources says of kInterfaceId, kClassId or kRecordId.
  // Fails as the platform does.
  [[nodiscard]] ComPtr<ITypeInfo> TypeInfo(REFGUID id);

 private:
  struct Runtime;

  constexpr Library() noexcept;
  ~Library();
  // Makes the calling thread the one that everything belongs to, unless another is that already.
  [[nodiscard]] bool Claim() noexcept;
  void Disown() noexcept;

  static Library only_;

  std::atomic<bool> is_held_ = false;
  bool is_ending_ = false;  // the owner lets the host's objects go
  SRWLOCK owner_lock_ = SRWLOCK_INIT;
  DWORD owner_ = 0;
  win32::Owned<HANDLE> owner_thread_;  // kept open: Windows would give the thread's id to another
  ComPtr<ITypeLib> types_;
  std::unique_ptr<Runtime> runtime_;
};

}  // namespace quill::com

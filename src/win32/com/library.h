// The loaded library: its module handle, its type information, how much of it is in use, and the
// one main module with the platform beneath it.
//
// Everything but the counts belongs to the user-interface thread that first used the library;
// others are refused while it lives.
#pragma once

#include <atomic>
#include <memory>

#include "plugin/mdlBHDGS.h"
#include "win32/com/automation.h"
#include "win32/com/com_ptr.h"

namespace quill::com {

class Library {
 public:
  [[nodiscard]] static Library& Get() noexcept;

  // Called by the loader; nothing else is done under its lock.
  void SetInstance(HINSTANCE instance) noexcept { instance_ = instance; }
  [[nodiscard]] HINSTANCE instance() const noexcept { return instance_; }

  // Full path of this library's file.
  [[nodiscard]] Text FilePath() const;

  // Objects and locks that keep the library loaded.
  void Use() noexcept { ++uses_; }
  void EndUse() noexcept { --uses_; }

  // True when nothing keeps the library loaded. The main module has then ended, with a dialog that
  // is not shown, the host's objects and everything native: what is left may be unloaded, or used
  // again from a fresh start. False on another thread than theirs.
  [[nodiscard]] bool ReadyToUnload();

  // The main module, made on first use. RPC_E_WRONG_THREAD on a thread that may not use it.
  [[nodiscard]] mdlBHDGS& Module();

  // From the type library in this file's resources. Both fail as the platform does.
  [[nodiscard]] ComPtr<ITypeInfo> InterfaceInfo();
  [[nodiscard]] ComPtr<ITypeInfo> ClassInfo();
  [[nodiscard]] ComPtr<IRecordInfo> RecordInfo();

 private:
  struct Runtime;

  constexpr Library() noexcept;
  ~Library();
  // Makes the calling thread the one that everything belongs to, unless another is that already.
  [[nodiscard]] bool Claim() noexcept;
  [[nodiscard]] ComPtr<ITypeInfo> TypeInfo(REFGUID id);

  static Library only_;

  HINSTANCE instance_ = nullptr;
  std::atomic<long> uses_ = 0;
  std::atomic<DWORD> owner_ = 0;
  ComPtr<ITypeLib> types_;
  std::unique_ptr<Runtime> runtime_;
};

// Keeps the library loaded while it exists.
class LibraryUse {
 public:
  LibraryUse() noexcept { Library::Get().Use(); }
  ~LibraryUse() { Library::Get().EndUse(); }
  LibraryUse(const LibraryUse&) = delete;
  LibraryUse& operator=(const LibraryUse&) = delete;
};

}  // namespace quill::com

// A kernel file handle that closes itself, and the native form of paths.
#pragma once

#include <windows.h>

#include <string>
#include <utility>

#include "support/text.h"

namespace quill::win32 {

class FileHandle {
 public:
  explicit FileHandle(HANDLE handle) noexcept : handle_(handle) {}
  FileHandle(FileHandle&& other) noexcept
      : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  FileHandle& operator=(FileHandle&&) = delete;
  ~FileHandle() {
    if (valid()) CloseHandle(handle_);
  }
  [[nodiscard]] bool valid() const noexcept { return handle_ != INVALID_HANDLE_VALUE; }
  [[nodiscard]] HANDLE get() const noexcept { return handle_; }

 private:
  HANDLE handle_;
};

// `path` as file calls take it; a long one gets the prefix that lifts the system's length limit.
// Fails with kPathNotFound for an empty path and for one with a zero unit in it, which the system
// would take for another, shorter one.
[[nodiscard]] std::wstring NativePath(TextView path);

// Opens an existing file for reading; others may write, rename and delete it meanwhile. Fails as
// FileSystem does.
[[nodiscard]] FileHandle OpenExisting(TextView path);

}  // namespace quill::win32

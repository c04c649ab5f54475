// The file system of the machine. Paths may be longer than the system's classic limit.
#pragma once

#include <memory>
#include <span>
#include <string>

#include "support/file_system.h"
#include "win32/owned.h"

namespace quill::win32 {

// `path` as file calls take it; a long one gets the prefix that lifts the system's length limit.
// Fails with kPathNotFound for an empty path and for one with a zero unit in it, which the system
// would take for another, shorter one.
[[nodiscard]] std::wstring NativePath(TextView path);

// Opens an existing file for reading; others may write, rename and delete it meanwhile. Fails as
// FileSystem does.
[[nodiscard]] Owned<HANDLE> OpenExisting(TextView path);

class Win32FileSystem final : public FileSystem {
 public:
  bool FolderExists(TextView path) override;
  void MakeFolder(TextView path) override;
  bool FileExists(TextView path) override;
  std::int64_t FileSize(TextView path) override;
  void RemoveFile(TextView path) override;
  void RenameFile(TextView from, TextView to) override;
  void MakeEmptyFile(TextView path) override;
  // Reading fails with kDeviceIoError.
  std::unique_ptr<ByteReader> OpenForReading(TextView path) override;
};

}  // namespace quill::win32

// The file system of the machine. Paths may be longer than the system's classic limit.
#pragma once

#include <memory>
#include <span>

#include "support/file_system.h"

namespace quill::win32 {

class Win32FileSystem final : public FileSystem {
 public:
  bool FolderExists(TextView path) override;
  void MakeFolder(TextView path) override;
  bool FileExists(TextView path) override;
  std::int64_t FileSize(TextView path) override;
  void RemoveFile(TextView path) override;
  void RenameFile(TextView from, TextView to) override;
  void MakeEmptyFile(TextView path) override;
  std::unique_ptr<ByteReader> OpenForReading(TextView path) override;
};

}  // namespace quill::win32

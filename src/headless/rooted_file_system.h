// A file system of host paths that live in a real folder: with the host root C:\Host and the folder
// /tmp/h, C:\Host\RCData\a.txt is /tmp/h/RCData/a.txt. Names are found in any letter case, as on
// Windows; a new file gets the letter case it is made with. No path reaches a file outside the
// folder, not even through a link.
#pragma once

#include <filesystem>

#include "headless/host_path.h"

namespace quill::headless {

class RootedFileSystem final : public HostPathFileSystem {
 public:
  // `folder` must exist. `host_root` is an absolute host path.
  RootedFileSystem(TextView host_root, const std::filesystem::path& folder);

  void MakeFolder(TextView path) override;
  std::int64_t FileSize(TextView path) override;
  void RemoveFile(TextView path) override;
  void RenameFile(TextView from, TextView to) override;
  void MakeEmptyFile(TextView path) override;
  std::unique_ptr<ByteReader> OpenForReading(TextView path) override;

  // Where a host path lies, whether or not there is a file. Fails with kPathNotFound for a path
  // outside the host root and with kPathFileAccessError for one that is not allowed.
  [[nodiscard]] std::filesystem::path RealPath(TextView path) const;

 private:
  [[nodiscard]] Entry EntryAt(TextView path) const override;

  Text host_root_;
  std::filesystem::path folder_;  // canonical
};

}  // namespace quill::headless

// Host paths ("C:\Host\RCData\a.txt") for file systems that are not Windows' own, and what those
// have in common.
#pragma once

#include <vector>

#include "support/file_system.h"
#include "support/runtime_error.h"
#include "support/text.h"

namespace quill::headless {

// The drive and the names of an absolute host path, as views into `path`. "\" and "/" separate;
// repeated and trailing separators count once.
//
// Fails with kPathNotFound for a path that does not begin with a drive ("C:"), and with
// kPathFileAccessError for names that Windows would not take or would take for something else: "."
// and "..", names that end in a dot or a blank, and names with a control character or one of
// < > : " | ? *.
[[nodiscard]] std::vector<TextView> SplitHostPath(TextView path);

// The pieces in lower case and joined by "\": equal for paths that name the same file.
[[nodiscard]] Text HostPathKey(const std::vector<TextView>& pieces);

// Fails with that error, its usual description and the path.
[[noreturn]] void FailAt(ErrorNumber number, TextView path);

// A file system of host paths. Bad names are failures where something is to be made, and elsewhere
// paths that nothing has.
class HostPathFileSystem : public FileSystem {
 public:
  bool FolderExists(TextView path) final { return Has(path, Entry::kFolder); }
  bool FileExists(TextView path) final { return Has(path, Entry::kFile); }

 protected:
  enum class Entry : std::uint8_t { kNone, kFile, kFolder };
  // What has that path. Fails as SplitHostPath does.
  [[nodiscard]] virtual Entry EntryAt(TextView path) const = 0;
  // Fails unless there is a file, as FileSystem says; with kPathFileAccessError for a folder.
  void CheckFile(TextView path) const;
  // Fails with kPathFileAccessError where a folder is already, with kPathNotFound where the folder
  // to lie in is missing.
  void CheckRoomForFile(TextView path) const;

 private:
  [[nodiscard]] bool Has(TextView path, Entry entry) const;
};

}  // namespace quill::headless

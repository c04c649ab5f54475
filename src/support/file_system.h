// The file-system operations that the system needs, over Windows paths (separator "\"). Implemented
// by the platform and in memory.
//
// Failures are RuntimeErrors: kFileNotFound for a missing file, kPathNotFound for a missing parent
// folder, kPathFileAccessError or kPermissionDenied for one that may not be touched.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "support/text.h"

namespace quill {

// A file open for reading; the destructor closes it.
class ByteReader {
 public:
  virtual ~ByteReader() = default;
  // Fills the front of `buffer` and returns how many bytes were read; 0 at the end of the file.
  virtual std::size_t Read(std::span<char> buffer) = 0;
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  virtual bool FolderExists(TextView path) = 0;
  // Creates one folder; its parent must exist.
  virtual void MakeFolder(TextView path) = 0;
  virtual bool FileExists(TextView path) = 0;
  // In bytes.
  virtual std::int64_t FileSize(TextView path) = 0;
  virtual void RemoveFile(TextView path) = 0;
  // Renames within one folder, replacing `to` when it exists.
  virtual void RenameFile(TextView from, TextView to) = 0;
  // Creates an empty file, or empties an existing one, and closes it.
  virtual void MakeEmptyFile(TextView path) = 0;
  virtual std::unique_ptr<ByteReader> OpenForReading(TextView path) = 0;
};

}  // namespace quill

// File storage over a memory file system, which must outlive it: what the plug-in sees through the
// one, the host writes through the other.
#pragma once

#include "headless/memory_file_system.h"
#include "host/kit/file_storage.h"

namespace quill::host {

class MemoryStorage final : public FileStorage {
 public:
  explicit MemoryStorage(headless::MemoryFileSystem& files) noexcept : files_(files) {}

  std::optional<std::string> ReadWhole(TextView path) override {
    if (!files_.FileExists(path)) return std::nullopt;
    return files_.Contents(path);
  }
  void Replace(TextView path, std::string_view bytes) override { files_.SetContents(path, bytes); }
  void Append(TextView path, std::string_view bytes) override {
    files_.AppendContents(path, bytes);
  }
  void Remove(TextView path) override {
    if (files_.FileExists(path)) files_.RemoveFile(path);
  }

 private:
  headless::MemoryFileSystem& files_;
};

}  // namespace quill::host

// Whole files as bytes: what the file kit and the relay need beyond quill::FileSystem, which writes
// no contents. Paths are host paths; failures are RuntimeErrors with the file system's numbers.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "headless/memory_file_system.h"
#include "support/text.h"

namespace quill::host {

class FileStorage {
 public:
  virtual ~FileStorage() = default;

  // Nothing when there is no such file.
  virtual std::optional<std::string> ReadWhole(TextView path) = 0;

  // Creates the file or replaces what it holds. A reader sees the old or the new contents and never
  // a part of them, and a failure leaves the old ones.
  virtual void Replace(TextView path, std::string_view bytes) = 0;

  // Adds to the end; creates the file when it is missing. The folder must exist.
  virtual void Append(TextView path, std::string_view bytes) = 0;

  // Removes the file; nothing happens when there is none.
  virtual void Remove(TextView path) = 0;
};

// On a real disk. Where a host path lies there is the caller's to say, so that the same class
// serves a host whose files are rooted in a folder and one that runs on Windows itself.
class DiskStorage final : public FileStorage {
 public:
  // May throw for a path that is not allowed; the operation then fails with that error.
  using RealPathOf = std::function<std::filesystem::path(TextView)>;

  explicit DiskStorage(RealPathOf real_path_of) : real_path_of_(std::move(real_path_of)) {}

  std::optional<std::string> ReadWhole(TextView path) override;
  // Writes a neighbour, named after the file with ".new~" added, and renames it over the file.
  void Replace(TextView path, std::string_view bytes) override;
  void Append(TextView path, std::string_view bytes) override;
  void Remove(TextView path) override;

 private:
  RealPathOf real_path_of_;
};

// Over a memory file system, which must outlive it: what the plug-in sees through the one, the host
// writes through the other.
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

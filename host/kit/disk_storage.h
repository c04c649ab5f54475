// File storage on a real disk. Where a host path lies there is the caller's to say, so that the
// same class serves a host whose files are rooted in a folder and one that runs on Windows itself.
#pragma once

#include <filesystem>
#include <functional>

#include "host/kit/file_storage.h"

namespace quill::host {

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

}  // namespace quill::host

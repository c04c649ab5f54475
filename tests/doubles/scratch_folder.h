// A new, empty folder of this test alone, removed with the object.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

#include "support/text.h"

namespace quill {

class ScratchFolder {
 public:
  ScratchFolder() {
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / ("quill-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
  }
  ~ScratchFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  [[nodiscard]] Text text() const { return path_.u16string(); }
  // The file's path, after it has been given these bytes. Missing folders are made.
  Text Put(const std::filesystem::path& name, std::string_view bytes) const {
    std::filesystem::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return (path_ / name).u16string();
  }

 private:
  std::filesystem::path path_;
};

}  // namespace quill

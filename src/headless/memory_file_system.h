// A file system that lives in memory, with the naming rules of Windows: any letter case finds a
// file. The drives and folders of the given root exist from the start; everything else is made by
// calls.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "headless/host_path.h"

namespace quill::headless {

class MemoryFileSystem final : public HostPathFileSystem {
 public:
  explicit MemoryFileSystem(TextView root = u"C:\\Host");

  void MakeFolder(TextView path) override;
  std::int64_t FileSize(TextView path) override;
  void RemoveFile(TextView path) override;
  void RenameFile(TextView from, TextView to) override;
  void MakeEmptyFile(TextView path) override;
  // The reader reads the content as it was when the file was opened.
  std::unique_ptr<ByteReader> OpenForReading(TextView path) override;

  // Whole contents. Reading fails with kFileNotFound for a missing file; writing creates the file
  // in an existing folder.
  [[nodiscard]] std::string Contents(TextView path) const;
  void SetContents(TextView path, std::string_view bytes);
  void AppendContents(TextView path, std::string_view bytes);

  // Makes a folder and every missing folder above it.
  void MakeFolders(TextView path);
  // Full paths of all files, in the letter case they were made with, ordered without regard to it.
  [[nodiscard]] std::vector<Text> FilePaths() const;

 private:
  struct Node {
    Text path;  // in the letter case it was made with
    bool is_folder = false;
    std::shared_ptr<const std::string> bytes;  // shared with open readers; null for a folder
  };

  [[nodiscard]] Entry EntryAt(TextView path) const override;
  [[nodiscard]] const Node& FileAt(TextView path) const;
  // The node for a file that is about to be written, made when it is missing.
  Node& FileForWriting(TextView path);

  std::map<Text, Node, std::less<>> nodes_;  // by lower-case path
};

}  // namespace quill::headless

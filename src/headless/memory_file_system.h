// A file system that lives in memory, with the naming rules of Windows: any letter case finds a
// file, "\" and "/" separate, repeated and trailing separators count once. The drives and folders
// of the given root exist from the start; everything else is made by calls.
//
// Paths begin with a drive, as in C:\Host\a.txt. Where something is to be made, another path fails
// with kPathNotFound, and one with a name that Windows would not take, or would take for something
// else, with kPathFileAccessError: "." and "..", names that end in a dot or a blank, and names with
// a control character or one of < > : " | ? *. Elsewhere nothing has such a path.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "support/file_system.h"

namespace quill::headless {

class MemoryFileSystem final : public FileSystem {
 public:
  explicit MemoryFileSystem(TextView root = u"C:\\Host");

  bool FolderExists(TextView path) override { return Has(path, true); }
  void MakeFolder(TextView path) override;
  bool FileExists(TextView path) override { return Has(path, false); }
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

  // Null when there is none.
  [[nodiscard]] const Node* Find(TextView path) const;
  [[nodiscard]] bool Has(TextView path, bool is_folder) const;
  // Fails where a folder is already, and where the folder to lie in is missing.
  void CheckRoomForFile(TextView path) const;
  // Fails unless there is a file, as FileSystem says; with kPathFileAccessError for a folder.
  [[nodiscard]] const Node& FileAt(TextView path) const;
  // The node for a file that is about to be written, made when it is missing.
  Node& FileForWriting(TextView path);

  std::map<Text, Node, std::less<>> nodes_;  // by lower-case path
};

}  // namespace quill::headless

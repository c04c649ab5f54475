// Files and folders held in one ordered map.
#include "headless/memory_file_system.h"

#include <algorithm>
#include <cstring>

namespace quill::headless {
namespace {

class MemoryReader final : public ByteReader {
 public:
  explicit MemoryReader(std::shared_ptr<const std::string> bytes) : bytes_(std::move(bytes)) {}

  std::size_t Read(std::span<char> buffer) override {
    const std::size_t count = std::min(buffer.size(), bytes_->size() - position_);
    if (count != 0) std::memcpy(buffer.data(), bytes_->data() + position_, count);
    position_ += count;
    return count;
  }

 private:
  std::shared_ptr<const std::string> bytes_;
  std::size_t position_ = 0;
};

Text Joined(const std::vector<TextView>& pieces) {
  Text path;
  for (const TextView piece : pieces) {
    if (!path.empty()) path += u'\\';
    path += piece;
  }
  return path;
}

}  // namespace

MemoryFileSystem::MemoryFileSystem(TextView root) {
  MakeFolders(root);
}

HostPathFileSystem::Entry MemoryFileSystem::EntryAt(TextView path) const {
  const auto found = nodes_.find(HostPathKey(SplitHostPath(path)));
  if (found == nodes_.end()) return Entry::kNone;
  return found->second.is_folder ? Entry::kFolder : Entry::kFile;
}

const MemoryFileSystem::Node& MemoryFileSystem::FileAt(TextView path) const {
  CheckFile(path);
  return nodes_.find(HostPathKey(SplitHostPath(path)))->second;
}

MemoryFileSystem::Node& MemoryFileSystem::FileForWriting(TextView path) {
  CheckRoomForFile(path);
  const std::vector<TextView> pieces = SplitHostPath(path);
  const auto [node, is_new] = nodes_.try_emplace(HostPathKey(pieces));
  if (is_new) node->second = Node{Joined(pieces), false, std::make_shared<const std::string>()};
  return node->second;
}

void MemoryFileSystem::MakeFolder(TextView path) {
  CheckRoomForFile(path);
  MakeFolders(path);
}

void MemoryFileSystem::MakeFolders(TextView path) {
  std::vector<TextView> pieces;
  for (const TextView piece : SplitHostPath(path)) {
    pieces.push_back(piece);
    const auto [node, is_new] = nodes_.try_emplace(HostPathKey(pieces));
    if (is_new) node->second = Node{Joined(pieces), true, nullptr};
    if (!node->second.is_folder) FailAt(ErrorNumber::kPathFileAccessError, path);
  }
}

std::int64_t MemoryFileSystem::FileSize(TextView path) {
  return static_cast<std::int64_t>(FileAt(path).bytes->size());
}

void MemoryFileSystem::RemoveFile(TextView path) {
  CheckFile(path);
  nodes_.erase(HostPathKey(SplitHostPath(path)));
}

void MemoryFileSystem::RenameFile(TextView from, TextView to) {
  const std::shared_ptr<const std::string> bytes = FileAt(from).bytes;
  const std::vector<TextView> pieces = SplitHostPath(to);
  FileForWriting(to) = Node{Joined(pieces), false, bytes};
  const Text from_key = HostPathKey(SplitHostPath(from));
  if (from_key != HostPathKey(pieces)) nodes_.erase(from_key);
}

void MemoryFileSystem::MakeEmptyFile(TextView path) {
  SetContents(path, {});
}

std::unique_ptr<ByteReader> MemoryFileSystem::OpenForReading(TextView path) {
  return std::make_unique<MemoryReader>(FileAt(path).bytes);
}

std::string MemoryFileSystem::Contents(TextView path) const {
  return *FileAt(path).bytes;
}

void MemoryFileSystem::SetContents(TextView path, std::string_view bytes) {
  FileForWriting(path).bytes = std::make_shared<const std::string>(bytes);
}

void MemoryFileSystem::AppendContents(TextView path, std::string_view bytes) {
  Node& node = FileForWriting(path);
  std::string whole = *node.bytes;
  whole += bytes;
  node.bytes = std::make_shared<const std::string>(std::move(whole));
}

std::vector<Text> MemoryFileSystem::FilePaths() const {
  std::vector<Text> paths;
  for (const auto& [key, node] : nodes_) {
    if (!node.is_folder) paths.push_back(node.path);
  }
  return paths;
}

}  // namespace quill::headless

// Files and folders held in one ordered map.
#include "headless/memory_file_system.h"

#include <algorithm>
#include <cstring>

#include "support/runtime_error.h"

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

bool IsDrive(TextView name) {
  return name.size() == 2 && name[1] == u':' &&
         ((name[0] >= u'A' && name[0] <= u'Z') || (name[0] >= u'a' && name[0] <= u'z'));
}

bool IsAllowedInNames(char16_t unit) {
  switch (unit) {
    case u'<':
    case u'>':
    case u':':
    case u'"':
    case u'|':
    case u'?':
    case u'*':
      return false;
    default:
      return unit >= 0x20;
  }
}

// The path with one "\" between its names and none at its end. Fails for a path that does not begin
// with a drive, and for names that are not allowed.
Text NormalPath(TextView path) {
  Text normal;
  for (TextView rest = path; normal.empty() || !rest.empty();) {
    const TextView name = rest.substr(0, rest.find_first_of(u"\\/"));
    rest.remove_prefix(std::min(rest.size(), name.size() + 1));
    if (normal.empty()) {
      if (!IsDrive(name)) {
        throw RuntimeError(ErrorNumber::kPathNotFound,
                           Concat({u"The path \"", path, u"\" does not begin with a drive"}));
      }
      normal = name;
    } else if (!name.empty()) {
      // Windows takes dots and blanks off the end of a name, which then means another file.
      if (name.back() == u'.' || name.back() == u' ' ||
          !std::ranges::all_of(name, IsAllowedInNames)) {
        throw RuntimeError(
            ErrorNumber::kPathFileAccessError,
            Concat({u"\"", name, u"\" is no file name, in the path \"", path, u"\""}));
      }
      normal += u'\\';
      normal += name;
    }
  }
  return normal;
}

// Equal for paths that name the same file.
Text KeyOf(TextView path) {
  return ToLower(NormalPath(path));
}

TextView FolderOf(TextView path) {
  // Separators at the end do not count: what lies before them is the last name.
  const std::size_t name_end = path.find_last_not_of(u"\\/") + 1;
  return path.substr(0, std::min(path.substr(0, name_end).find_last_of(u"\\/"), path.size()));
}

// Fails with that error, its usual description and the path.
[[noreturn]] void FailAt(ErrorNumber number, TextView path) {
  throw RuntimeError(number,
                     Concat({DefaultDescription(static_cast<std::int32_t>(number)), u": ", path}));
}

}  // namespace

MemoryFileSystem::MemoryFileSystem(TextView root) {
  MakeFolders(root);
}

const MemoryFileSystem::Node* MemoryFileSystem::Find(TextView path) const try {
  const auto found = nodes_.find(KeyOf(path));
  return found != nodes_.end() ? &found->second : nullptr;
} catch (const RuntimeError&) {
  return nullptr;  // nothing can have such a name
}

bool MemoryFileSystem::Has(TextView path, bool is_folder) const {
  const Node* const found = Find(path);
  return found != nullptr && found->is_folder == is_folder;
}

void MemoryFileSystem::CheckRoomForFile(TextView path) const {
  static_cast<void>(NormalPath(path));
  if (Has(path, true)) FailAt(ErrorNumber::kPathFileAccessError, path);
  if (!Has(FolderOf(path), true)) FailAt(ErrorNumber::kPathNotFound, path);
}

const MemoryFileSystem::Node& MemoryFileSystem::FileAt(TextView path) const {
  if (const Node* const found = Find(path)) {
    if (!found->is_folder) return *found;
    FailAt(ErrorNumber::kPathFileAccessError, path);
  }
  // In the usual words, as a native file system says it: whoever reports it adds the path.
  throw RuntimeError(Has(FolderOf(path), true) ? ErrorNumber::kFileNotFound
                                               : ErrorNumber::kPathNotFound);
}

MemoryFileSystem::Node& MemoryFileSystem::FileForWriting(TextView path) {
  CheckRoomForFile(path);
  const auto [node, is_new] = nodes_.try_emplace(KeyOf(path));
  if (is_new) node->second = {NormalPath(path), false, std::make_shared<const std::string>()};
  return node->second;
}

void MemoryFileSystem::MakeFolder(TextView path) {
  CheckRoomForFile(path);
  MakeFolders(path);
}

void MemoryFileSystem::MakeFolders(TextView path) {
  const Text whole = NormalPath(path);
  for (std::size_t end = 0; end != Text::npos;) {
    end = whole.find(u'\\', end + 1);
    const Text folder = whole.substr(0, end);
    const auto [node, is_new] = nodes_.try_emplace(ToLower(folder));
    if (is_new) node->second = {folder, true, nullptr};
    if (!node->second.is_folder) FailAt(ErrorNumber::kPathFileAccessError, path);
  }
}

std::int64_t MemoryFileSystem::FileSize(TextView path) {
  return static_cast<std::int64_t>(FileAt(path).bytes->size());
}

void MemoryFileSystem::RemoveFile(TextView path) {
  static_cast<void>(FileAt(path));
  nodes_.erase(KeyOf(path));
}

void MemoryFileSystem::RenameFile(TextView from, TextView to) {
  const std::shared_ptr<const std::string> bytes = FileAt(from).bytes;
  FileForWriting(to) = {NormalPath(to), false, bytes};
  if (KeyOf(from) != KeyOf(to)) nodes_.erase(KeyOf(from));
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
  // New bytes in place of the old ones, which an open reader may still be reading.
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

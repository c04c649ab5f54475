// Host paths mapped into a real folder.
#include "headless/rooted_file_system.h"

#include <algorithm>
#include <fstream>
#include <system_error>
#include <utility>
#include <vector>

namespace quill::headless {
namespace {

namespace fs = std::filesystem;

void Check(const std::error_code& error, TextView path) {
  if (!error) return;
  if (error == std::errc::permission_denied || error == std::errc::read_only_file_system) {
    FailAt(ErrorNumber::kPermissionDenied, path);
  }
  if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory) {
    FailAt(ErrorNumber::kPathNotFound, path);
  }
  throw RuntimeError(ErrorNumber::kPathFileAccessError,
                     Concat({FromUtf8(error.message()), u": ", path}));
}

fs::path NameOnDisk(TextView name, TextView path) {
  const std::string bytes = ToUtf8(name);
  // A name that UTF-8 cannot hold would meet another one on the disk.
  if (FromUtf8(bytes) != name) FailAt(ErrorNumber::kPathFileAccessError, path);
  return fs::path(std::u8string(bytes.begin(), bytes.end()));
}

Text NameOf(const fs::path& entry) {
  const std::u8string name = entry.filename().u8string();
  return FromUtf8(std::string(name.begin(), name.end()));
}

// The entry of `folder` called `name`: exactly, or else in another letter case, or else a new one.
fs::path FindEntry(const fs::path& folder, TextView name, TextView path) {
  fs::path exact = folder / NameOnDisk(name, path);
  std::error_code error;
  if (fs::exists(fs::symlink_status(exact, error))) return exact;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (EqualIgnoringCase(NameOf(entry->path()), name)) return entry->path();
  }
  return exact;
}

class StreamReader final : public ByteReader {
 public:
  StreamReader(std::ifstream stream, TextView path) : stream_(std::move(stream)), path_(path) {}

  std::size_t Read(std::span<char> buffer) override {
    if (!stream_.good()) return 0;
    stream_.read(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    if (stream_.bad()) FailAt(ErrorNumber::kDeviceIoError, path_);
    return static_cast<std::size_t>(stream_.gcount());
  }

 private:
  std::ifstream stream_;
  Text path_;
};

}  // namespace

RootedFileSystem::RootedFileSystem(TextView host_root, const fs::path& folder)
    : host_root_(host_root) {
  while (!host_root_.empty() && host_root_.back() == u'\\') host_root_.pop_back();
  static_cast<void>(SplitHostPath(host_root_));
  std::error_code error;
  folder_ = fs::canonical(folder, error);
  const std::u8string name = folder.u8string();
  Check(error, FromUtf8(std::string(name.begin(), name.end())));
}

fs::path RootedFileSystem::RealPath(TextView path) const {
  const std::vector<TextView> root = SplitHostPath(host_root_);
  const std::vector<TextView> pieces = SplitHostPath(path);
  if (pieces.size() < root.size() ||
      !std::equal(root.begin(), root.end(), pieces.begin(), EqualIgnoringCase)) {
    throw RuntimeError(
        ErrorNumber::kPathNotFound,
        Concat({u"The path \"", path, u"\" is outside the host's folder ", host_root_}));
  }
  fs::path real = folder_;
  for (std::size_t at = root.size(); at < pieces.size(); ++at) {
    real = FindEntry(real, pieces[at], path);
  }
  std::error_code error;
  const fs::path target = fs::weakly_canonical(real, error);
  const bool is_inside =
      !error && std::mismatch(folder_.begin(), folder_.end(), target.begin(), target.end()).first ==
                    folder_.end();
  if (!is_inside) FailAt(ErrorNumber::kPathFileAccessError, path);
  return real;
}

HostPathFileSystem::Entry RootedFileSystem::EntryAt(TextView path) const {
  std::error_code error;
  const fs::file_status status = fs::status(RealPath(path), error);
  if (fs::is_directory(status)) return Entry::kFolder;
  return fs::is_regular_file(status) ? Entry::kFile : Entry::kNone;
}

void RootedFileSystem::MakeFolder(TextView path) {
  std::error_code error;
  const bool is_new = fs::create_directory(RealPath(path), error);
  Check(error, path);
  if (!is_new) FailAt(ErrorNumber::kPathFileAccessError, path);
}

std::int64_t RootedFileSystem::FileSize(TextView path) {
  CheckFile(path);
  std::error_code error;
  const std::uintmax_t size = fs::file_size(RealPath(path), error);
  Check(error, path);
  return static_cast<std::int64_t>(size);
}

void RootedFileSystem::RemoveFile(TextView path) {
  CheckFile(path);
  std::error_code error;
  fs::remove(RealPath(path), error);
  Check(error, path);
}

void RootedFileSystem::RenameFile(TextView from, TextView to) {
  CheckFile(from);
  CheckRoomForFile(to);
  std::error_code error;
  fs::rename(RealPath(from), RealPath(to), error);
  Check(error, to);
}

void RootedFileSystem::MakeEmptyFile(TextView path) {
  CheckRoomForFile(path);
  std::ofstream stream(RealPath(path), std::ios::binary | std::ios::trunc);
  if (!stream) FailAt(ErrorNumber::kPathFileAccessError, path);
}

std::unique_ptr<ByteReader> RootedFileSystem::OpenForReading(TextView path) {
  CheckFile(path);
  std::ifstream stream(RealPath(path), std::ios::binary);
  if (!stream) FailAt(ErrorNumber::kPermissionDenied, path);
  return std::make_unique<StreamReader>(std::move(stream), path);
}

}  // namespace quill::headless

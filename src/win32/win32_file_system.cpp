// The machine's files, with its error codes as the failures that callers know.
#include "win32/win32_file_system.h"

#include <utility>

#include "win32/file_handle.h"
#include "win32/last_error.h"

namespace quill::win32 {
namespace {

// Whether that exists, as a folder or as a file. What cannot be a path does not.
bool Exists(TextView path, bool as_folder) {
  if (path.empty() || path.find(u'\0') != TextView::npos) return false;
  const DWORD attributes = GetFileAttributesW(NativePath(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES &&
         ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) == as_folder;
}

class FileReader final : public ByteReader {
 public:
  explicit FileReader(Owned<HANDLE> file) noexcept : file_(std::move(file)) {}
  std::size_t Read(std::span<char> buffer) override {
    return ReadFrom(file_, buffer.data(), buffer.size());
  }

 private:
  Owned<HANDLE> file_;
};

}  // namespace

bool Win32FileSystem::FolderExists(TextView path) {
  return Exists(path, true);
}

bool Win32FileSystem::FileExists(TextView path) {
  return Exists(path, false);
}

void Win32FileSystem::MakeFolder(TextView path) {
  if (CreateDirectoryW(NativePath(path).c_str(), nullptr)) return;
  const DWORD code = GetLastError();
  // A folder that exists already, or a file of that name, is an access error to callers.
  if (code == ERROR_ALREADY_EXISTS) throw RuntimeError(ErrorNumber::kPathFileAccessError);
  throw FileFailure(code);
}

std::int64_t Win32FileSystem::FileSize(TextView path) {
  WIN32_FILE_ATTRIBUTE_DATA data = {};
  if (!GetFileAttributesExW(NativePath(path).c_str(), GetFileExInfoStandard, &data)) {
    throw FileFailure(GetLastError());
  }
  if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    throw RuntimeError(ErrorNumber::kFileNotFound);
  }
  return (static_cast<std::int64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

void Win32FileSystem::RemoveFile(TextView path) {
  if (!DeleteFileW(NativePath(path).c_str())) throw FileFailure(GetLastError());
}

void Win32FileSystem::RenameFile(TextView from, TextView to) {
  // One step: whoever opens the target meanwhile sees the old file or the new one.
  if (!MoveFileExW(NativePath(from).c_str(), NativePath(to).c_str(), MOVEFILE_REPLACE_EXISTING)) {
    throw FileFailure(GetLastError());
  }
}

void Win32FileSystem::MakeEmptyFile(TextView path) {
  (void)MakeEmpty(path);
}

std::unique_ptr<ByteReader> Win32FileSystem::OpenForReading(TextView path) {
  return std::make_unique<FileReader>(OpenExisting(path));
}

}  // namespace quill::win32

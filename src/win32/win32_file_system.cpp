#include "win32/win32_file_system.h"

#include <windows.h>

#include <algorithm>

#include "win32/file_handle.h"
#include "win32/last_error.h"

namespace quill::win32 {
namespace {

// INVALID_FILE_ATTRIBUTES for what does not exist and for what cannot be a path.
DWORD Attributes(TextView path) {
  if (path.empty() || path.find(u'\0') != TextView::npos) return INVALID_FILE_ATTRIBUTES;
  return GetFileAttributesW(NativePath(path).c_str());
}

class FileReader final : public ByteReader {
 public:
  explicit FileReader(FileHandle file) noexcept : file_(std::move(file)) {}

  std::size_t Read(std::span<char> buffer) override {
    constexpr std::size_t kLargestRead = 1u << 30;
    const auto wanted = static_cast<DWORD>(std::min(buffer.size(), kLargestRead));
    DWORD read = 0;
    if (!ReadFile(file_.get(), buffer.data(), wanted, &read, nullptr)) {
      throw RuntimeError(ErrorNumber::kDeviceIoError);
    }
    return read;
  }

 private:
  FileHandle file_;
};

}  // namespace

bool Win32FileSystem::FolderExists(TextView path) {
  const DWORD attributes = Attributes(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void Win32FileSystem::MakeFolder(TextView path) {
  if (CreateDirectoryW(NativePath(path).c_str(), nullptr)) return;
  const DWORD code = GetLastError();
  // A folder that exists already, or a file of that name, is an access error to callers.
  if (code == ERROR_ALREADY_EXISTS) throw RuntimeError(ErrorNumber::kPathFileAccessError);
  throw FileFailure(code);
}

bool Win32FileSystem::FileExists(TextView path) {
  const DWORD attributes = Attributes(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
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
  if (!MoveFileExW(NativePath(from).c_str(), NativePath(to).c_str(), MOVEFILE_REPLACE_EXISTING)) {
    throw FileFailure(GetLastError());
  }
}

void Win32FileSystem::MakeEmptyFile(TextView path) {
  const FileHandle file(CreateFileW(NativePath(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ,
                                    nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.valid()) throw FileFailure(GetLastError());
}

std::unique_ptr<ByteReader> Win32FileSystem::OpenForReading(TextView path) {
  return std::make_unique<FileReader>(OpenExisting(path));
}

}  // namespace quill::win32

// The machine's files: the system's limits on paths, and its error codes as the failures that
// callers know.
#include "win32/win32_file_system.h"

#include <algorithm>
#include <iterator>
#include <source_location>
#include <utility>

#include "support/runtime_error.h"

namespace quill::win32 {
namespace {

// Folders may hold 248 units, files 260; the shorter one serves both.
constexpr std::size_t kPlainPathLimit = 240;

constexpr std::pair<DWORD, ErrorNumber> kKnownCodes[] = {
    {ERROR_FILE_NOT_FOUND, ErrorNumber::kFileNotFound},
    {ERROR_PATH_NOT_FOUND, ErrorNumber::kPathNotFound},
    {ERROR_INVALID_DRIVE, ErrorNumber::kPathNotFound},
    {ERROR_BAD_NETPATH, ErrorNumber::kPathNotFound},
    {ERROR_BAD_NET_NAME, ErrorNumber::kPathNotFound},
    {ERROR_INVALID_NAME, ErrorNumber::kPathNotFound},
    {ERROR_BAD_PATHNAME, ErrorNumber::kPathNotFound},
    {ERROR_DIRECTORY, ErrorNumber::kPathNotFound},
    {ERROR_ACCESS_DENIED, ErrorNumber::kPermissionDenied},
    {ERROR_SHARING_VIOLATION, ErrorNumber::kPermissionDenied},
    {ERROR_LOCK_VIOLATION, ErrorNumber::kPermissionDenied},
    {ERROR_WRITE_PROTECT, ErrorNumber::kPermissionDenied},
    {ERROR_FILE_EXISTS, ErrorNumber::kFileAlreadyExists},
    {ERROR_NOT_ENOUGH_MEMORY, ErrorNumber::kOutOfMemory},
    {ERROR_OUTOFMEMORY, ErrorNumber::kOutOfMemory},
};

// Fails with the reason of the system's call that has just been made, unless it is done. A code
// that is not known is kPathFileAccessError, as is that of a folder that is to be made and exists.
void Require(bool done, std::source_location raised_at = std::source_location::current()) {
  if (done) return;
  const auto* const known =
      std::ranges::find(kKnownCodes, GetLastError(), &std::pair<DWORD, ErrorNumber>::first);
  throw RuntimeError(
      known != std::end(kKnownCodes) ? known->second : ErrorNumber::kPathFileAccessError,
      raised_at);
}

std::wstring FullPath(const std::wstring& path) {
  std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  const DWORD length =
      GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
  Require(length > 0 && length < full.size());
  full.resize(length);
  return full;
}

Owned<HANDLE> Open(TextView path, DWORD access, DWORD sharing, DWORD disposition) {
  const std::wstring native = NativePath(path);
  const HANDLE file = CreateFileW(native.c_str(), access, sharing, nullptr, disposition,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  Require(file != INVALID_HANDLE_VALUE);
  return Owned<HANDLE>(file);
}

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
    constexpr std::size_t kLargestRead = 1u << 30;  // a read takes 32 bits
    const auto size = static_cast<DWORD>(std::min(buffer.size(), kLargestRead));
    DWORD read = 0;
    if (!ReadFile(file_.get(), buffer.data(), size, &read, nullptr)) {
      throw RuntimeError(ErrorNumber::kDeviceIoError);
    }
    return read;
  }

 private:
  Owned<HANDLE> file_;
};

}  // namespace

std::wstring NativePath(TextView path) {
  if (path.empty() || path.find(u'\0') != TextView::npos) {
    throw RuntimeError(ErrorNumber::kPathNotFound);
  }
  std::wstring native(path.begin(), path.end());
  if (native.size() < kPlainPathLimit || native.starts_with(L"\\\\?\\")) return native;
  native = FullPath(native);
  // With the prefix the system takes a path as it is: a full one, without "." and "/".
  if (native.starts_with(L"\\\\")) return L"\\\\?\\UNC" + native.substr(1);
  return L"\\\\?\\" + native;
}

Owned<HANDLE> OpenExisting(TextView path) {
  return Open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
              OPEN_EXISTING);
}

bool Win32FileSystem::FolderExists(TextView path) {
  return Exists(path, true);
}

bool Win32FileSystem::FileExists(TextView path) {
  return Exists(path, false);
}

void Win32FileSystem::MakeFolder(TextView path) {
  Require(CreateDirectoryW(NativePath(path).c_str(), nullptr));
}

std::int64_t Win32FileSystem::FileSize(TextView path) {
  WIN32_FILE_ATTRIBUTE_DATA data = {};
  Require(GetFileAttributesExW(NativePath(path).c_str(), GetFileExInfoStandard, &data));
  // A folder has attributes too, but it is no file.
  if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    throw RuntimeError(ErrorNumber::kFileNotFound);
  }
  return (static_cast<std::int64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

void Win32FileSystem::RemoveFile(TextView path) {
  Require(DeleteFileW(NativePath(path).c_str()));
}

// Replaces the target.
void Win32FileSystem::RenameFile(TextView from, TextView to) {
  Require(MoveFileExW(NativePath(from).c_str(), NativePath(to).c_str(), MOVEFILE_REPLACE_EXISTING));
}

// Others may read it meanwhile.
void Win32FileSystem::MakeEmptyFile(TextView path) {
  (void)Open(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS);
}

std::unique_ptr<ByteReader> Win32FileSystem::OpenForReading(TextView path) {
  return std::make_unique<FileReader>(OpenExisting(path));
}

}  // namespace quill::win32

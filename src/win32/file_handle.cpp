// Opening files: the system's limits on paths, and its reasons for refusing.
#include "win32/file_handle.h"

#include <algorithm>

#include "win32/last_error.h"

namespace quill::win32 {
namespace {

// Folders may hold 248 units, files 260; the shorter one serves both.
constexpr std::size_t kPlainPathLimit = 240;

std::wstring FullPath(const std::wstring& path) {
  std::wstring full(path.size() + MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (length == 0) throw FileFailure(GetLastError());
    const bool complete = length < full.size();
    full.resize(length);
    if (complete) return full;
  }
}

Owned<HANDLE> Open(TextView path, DWORD access, DWORD sharing, DWORD disposition) {
  const std::wstring native = NativePath(path);
  const HANDLE file = CreateFileW(native.c_str(), access, sharing, nullptr, disposition,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) throw FileFailure(GetLastError());
  return Owned<HANDLE>(file);
}

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

Owned<HANDLE> MakeEmpty(TextView path) {
  return Open(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS);
}

std::size_t ReadFrom(const Owned<HANDLE>& file, char* bytes, std::size_t size) {
  constexpr std::size_t kLargestRead = 1u << 30;  // a read takes 32 bits
  DWORD read = 0;
  if (!ReadFile(file.get(), bytes, static_cast<DWORD>(std::min(size, kLargestRead)), &read,
                nullptr)) {
    throw RuntimeError(ErrorNumber::kDeviceIoError);
  }
  return read;
}

}  // namespace quill::win32

#include "win32/file_handle.h"

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

}  // namespace

std::wstring NativePath(TextView path) {
  if (path.empty() || path.find(u'\0') != TextView::npos) {
    throw RuntimeError(ErrorNumber::kPathNotFound);
  }
  std::wstring native(path.begin(), path.end());
  if (native.size() < kPlainPathLimit || native.starts_with(L"\\\\?\\")) return native;
  native = FullPath(native);
  if (native.starts_with(L"\\\\")) return L"\\\\?\\UNC" + native.substr(1);
  return L"\\\\?\\" + native;
}

FileHandle OpenExisting(TextView path) {
  FileHandle file(CreateFileW(NativePath(path).c_str(), GENERIC_READ,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN,
                              nullptr));
  if (!file.valid()) throw FileFailure(GetLastError());
  return file;
}

}  // namespace quill::win32

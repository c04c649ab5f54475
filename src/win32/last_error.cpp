// Which of the system's error codes mean what to callers that know run-time errors.
#include "win32/last_error.h"

#include "com/com_error.h"

namespace quill::win32 {
namespace {

struct KnownCode {
  DWORD code;
  ErrorNumber number;
};
constexpr KnownCode kKnownCodes[] = {
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
    {ERROR_ALREADY_EXISTS, ErrorNumber::kFileAlreadyExists},
    {ERROR_NOT_ENOUGH_MEMORY, ErrorNumber::kOutOfMemory},
    {ERROR_OUTOFMEMORY, ErrorNumber::kOutOfMemory},
};

}  // namespace

RuntimeError FileFailure(DWORD code, std::source_location raised_at) {
  for (const auto& [known, number] : kKnownCodes) {
    if (known == code) return RuntimeError(number, raised_at);
  }
  return RuntimeError(ErrorNumber::kPathFileAccessError, raised_at);
}

RuntimeError WindowFailure() {
  const DWORD code = GetLastError();
  if (code == ERROR_SUCCESS) return RuntimeError(ErrorNumber::kOutOfMemory);
  return com::ErrorOf(HRESULT_FROM_WIN32(code));
}

}  // namespace quill::win32

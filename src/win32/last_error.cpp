#include "win32/last_error.h"

#include "com/com_error.h"

namespace quill::win32 {

RuntimeError FileFailure(DWORD code, std::source_location raised_at) {
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
      return RuntimeError(ErrorNumber::kFileNotFound, raised_at);
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_DIRECTORY:
      return RuntimeError(ErrorNumber::kPathNotFound, raised_at);
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
      return RuntimeError(ErrorNumber::kPermissionDenied, raised_at);
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return RuntimeError(ErrorNumber::kFileAlreadyExists, raised_at);
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return RuntimeError(ErrorNumber::kOutOfMemory, raised_at);
    default:
      return RuntimeError(ErrorNumber::kPathFileAccessError, raised_at);
  }
}

RuntimeError WindowFailure() {
  const DWORD code = GetLastError();
  if (code == ERROR_SUCCESS) return RuntimeError(ErrorNumber::kOutOfMemory);
  return com::ErrorOf(HRESULT_FROM_WIN32(code));
}

}  // namespace quill::win32

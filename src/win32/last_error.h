// The system's error codes as run-time failures.
#pragma once

#include <windows.h>

#include <source_location>

#include "support/runtime_error.h"

namespace quill::win32 {

// The failure for `code`: kFileNotFound, kPathNotFound, kPermissionDenied, kFileAlreadyExists,
// kOutOfMemory, and kPathFileAccessError for the rest.
[[nodiscard]] RuntimeError FileFailure(
    DWORD code, std::source_location raised_at = std::source_location::current());

// The failure of making a window, right after it: what the system says, kOutOfMemory where it does
// not say.
[[nodiscard]] RuntimeError WindowFailure();

}  // namespace quill::win32

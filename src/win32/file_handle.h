// Files of the machine, and the native form of paths.
#pragma once

#include <string>

#include "support/text.h"
#include "win32/owned.h"

namespace quill::win32 {

// `path` as file calls take it; a long one gets the prefix that lifts the system's length limit.
// Fails with kPathNotFound for an empty path and for one with a zero unit in it, which the system
// would take for another, shorter one.
[[nodiscard]] std::wstring NativePath(TextView path);

// Opens an existing file for reading; others may write, rename and delete it meanwhile. Fails as
// FileSystem does.
[[nodiscard]] Owned<HANDLE> OpenExisting(TextView path);
// Makes a file, or empties the one that is there; others may read it meanwhile. Fails likewise.
[[nodiscard]] Owned<HANDLE> MakeEmpty(TextView path);

// Reads at most `size` bytes; how many were read, 0 at the end. Fails with kDeviceIoError.
[[nodiscard]] std::size_t ReadFrom(const Owned<HANDLE>& file, char* bytes, std::size_t size);

}  // namespace quill::win32

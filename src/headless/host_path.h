// Host paths ("C:\Host\RCData\a.txt") taken apart for file systems that are not Windows' own.
#pragma once

#include <vector>

#include "support/runtime_error.h"
#include "support/text.h"

namespace quill::headless {

// The drive and the names of an absolute host path, as views into `path`. "\" and "/" separate;
// repeated and trailing separators count once.
//
// Fails with kPathNotFound for a path that does not begin with a drive ("C:"), and with
// kPathFileAccessError for names that Windows would not take or would take for something else: "."
// and "..", names that end in a dot or a blank, and names with a control character or one of
// < > : " | ? *.
[[nodiscard]] std::vector<TextView> SplitHostPath(TextView path);

// The pieces in lower case and joined by "\": equal for paths that name the same file.
[[nodiscard]] Text HostPathKey(const std::vector<TextView>& pieces);

// Fails with that error, its usual description and the path.
[[noreturn]] void FailAt(ErrorNumber number, TextView path);

}  // namespace quill::headless

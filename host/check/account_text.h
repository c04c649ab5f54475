// An account in words, a line each.
#pragma once

#include "host/check/file_account.h"

namespace quill::host {

// Nothing that comes from the file can break the line or play tricks on a terminal.
[[nodiscard]] Text AccountLineText(const AccountLine& line);
// The last line, about everything.
[[nodiscard]] Text AccountSummary(const FileAccount& account);

}  // namespace quill::host

// The machine's own code page for bytes in fields and files.
#pragma once

#include "support/code_page.h"

namespace quill::win32 {

// The system's ANSI code page when it is a single-byte one that holds ASCII, else Windows-1252.
[[nodiscard]] CodePage SystemCodePage();
// The same for a given code page number.
[[nodiscard]] CodePage CodePageOfNumber(unsigned number);

}  // namespace quill::win32

// Compressed texts: the zlib stream of a text's 16-bit units (little endian) in Base64, so that the
// result is plain ASCII and survives whatever carries strings. Any text comes back unchanged, lone
// surrogates and zero units included.
#pragma once

#include <cstdint>

#include "support/text.h"

namespace quill::host {

[[nodiscard]] Text CompressText(TextView text);

// The text of `length` units that was compressed. Fails with kInvalidProcedureCall and a
// description of what is wrong for damaged text and for a length that is not the text's own. Takes
// memory in proportion to what the stream really holds, and never more than `length` units need.
[[nodiscard]] Text DecompressText(TextView compressed, std::int32_t length);

}  // namespace quill::host

// The frame that large payloads travel in: the payload's length in 16-bit units, a marker, and the
// payload as the file kit compresses it.
#pragma once

#include "support/file_kit.h"
#include "support/text.h"

namespace quill {

inline constexpr TextView kFrameMarker = u"[-]Scorvane[-]";

[[nodiscard]] Text EncodeFrame(TextView payload, FileKit& file_kit);

// The payload of `frame`. What follows a second marker is ignored. Fails with kTypeMismatch or
// kOverflow when it does not begin with a 32-bit number, then with kSubscriptOutOfRange when there
// is no marker, and as the file kit does.
[[nodiscard]] Text DecodeFrame(TextView frame, FileKit& file_kit);

}  // namespace quill

// The button pictures of a host on a stage.
#pragma once

#include <string_view>

#include "support/text.h"

namespace quill::host {

inline constexpr TextView kReleasedPicturePath = u"\\imgs\\butup.gif";  // under the host's root
inline constexpr TextView kPressedPicturePath = u"\\imgs\\butdown.gif";

// One grey pixel as a GIF file.
inline constexpr std::string_view kReleasedPicture(
    "GIF89a\x01\x00\x01\x00\x80\x00\x00\xD4\xD0\xC8\x00\x00\x00\x2C\x00\x00\x00\x00\x01\x00\x01\x00"
    "\x00\x02\x02\x44\x01\x00\x3B",
    35);
// A darker one.
inline constexpr std::string_view kPressedPicture(
    "GIF89a\x01\x00\x01\x00\x80\x00\x00\x80\x80\x80\x00\x00\x00\x2C\x00\x00\x00\x00\x01\x00\x01\x00"
    "\x00\x02\x02\x44\x01\x00\x3B",
    35);

}  // namespace quill::host

// The plug-in's version as text.
#pragma once

#include "support/text.h"
#include "support/version.h"

namespace quill {

// The three numbers joined by points, for example "1.1.2".
[[nodiscard]] Text VersionText(int major_number = kVersionMajor, int minor_number = kVersionMinor,
                               int revision = kVersionRevision);

}  // namespace quill

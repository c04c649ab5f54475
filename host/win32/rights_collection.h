// The operator's rights as this host's collection: keyed by name without regard to letter case,
// with Count and Item, failing with "invalid procedure call" for a missing key.
#pragma once

#include <vector>

#include "com/automation.h"
#include "com/com_ptr.h"
#include "host/story/stage.h"

namespace quill::host {

[[nodiscard]] com::ComPtr<IDispatch> MakeRightsCollection(std::vector<Right> rights);

}  // namespace quill::host

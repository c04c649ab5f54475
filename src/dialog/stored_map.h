// Stored map references: how settings files and map-list files name a map, as code[-]flag[-]file.
#pragma once

#include <optional>
#include <vector>

#include "maps/map_lists.h"
#include "support/text.h"

namespace quill {

// The fields of a reference, at least one. The views point into `text`.
[[nodiscard]] std::vector<TextView> SplitStoredMap(TextView text);

[[nodiscard]] Text StoredMapText(const SelectedMap& map);

// The map that the fields name; nothing when there is none. Blanks around `file` do not count.
// kTypeMismatch for a flag that is no truth value; a code that is no number fails as ToInt32 does,
// if a map has it.
[[nodiscard]] std::optional<SelectedMap> FindStoredMap(const MapLists& maps, TextView code,
                                                       TextView flag, TextView file);

}  // namespace quill

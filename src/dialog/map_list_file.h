// How files name a map, as code[-]flag[-]file, and map-list files: a rotation as plain text, one
// map a line; read only.
#pragma once

#include <optional>
#include <vector>

#include "maps/map_lists.h"
#include "support/text.h"

namespace quill {

class frmrcBHDGS;

// The fields of a reference, at least one. The views point into `text`.
[[nodiscard]] std::vector<TextView> SplitStoredMap(TextView text);

[[nodiscard]] Text StoredMapText(const SelectedMap& map);

// The map that the fields name; nothing when there is none. Blanks around `file` do not count.
// kTypeMismatch for a flag that is no truth value; a code that is no number fails as ToInt32 does,
// if a map has it.
[[nodiscard]] std::optional<SelectedMap> FindStoredMap(const MapLists& maps, TextView code,
                                                       TextView flag, TextView file);

// The three fields of a map list's line; nothing for one that is no reference and is passed over.
[[nodiscard]] std::vector<TextView> FieldsOfMapLine(TextView line);

// The action of cmdLoadMaps. Trapped.
void LoadMapList(frmrcBHDGS& dialog);

}  // namespace quill

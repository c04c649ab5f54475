// Map-list files: a rotation as plain text, one map a line; read only.
#pragma once

#include <vector>

#include "dialog/stored_map.h"

namespace quill {

class frmrcBHDGS;

// The action of cmdLoadMaps. Trapped.
void LoadMapList(frmrcBHDGS& dialog);

// The three fields of a line; nothing for one that is no reference and is passed over.
[[nodiscard]] std::vector<TextView> FieldsOfMapLine(TextView line);

}  // namespace quill

// Map-list files: a rotation as plain text, one map a line; read only.
#pragma once

namespace quill {

class frmrcBHDGS;

// The action of cmdLoadMaps. Trapped.
void LoadMapList(frmrcBHDGS& dialog);

}  // namespace quill

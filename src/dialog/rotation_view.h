// How the map lists show maps: as rows of map entry text that carry the game-type code.
#pragma once

#include "support/trap.h"

namespace quill {

class frmrcBHDGS;

// Fills lstSelMaps from the rotation and shows the count; `at` notes the step. The list keeps its
// place, and the history learns of the change. A failure can leave the list hidden.
void ShowRotation(frmrcBHDGS& dialog, Line& at);

}  // namespace quill

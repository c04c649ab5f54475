// How the map lists show maps: as rows of map entry text that carry the game-type code.
#pragma once

#include "maps/selected_map_list.h"
#include "support/trap.h"
#include "ui/list_box.h"

namespace quill {

class frmrcBHDGS;

// Fills lstSelMaps from the rotation and shows the count; `at` notes the step. A failure can leave
// the list hidden.
void ShowRotation(frmrcBHDGS& dialog, Line& at);

// True when the 0-based `row` exists in the list and in the rotation and its text is still that of
// the map at the same place. A view can be older than the rotation: after a load that failed
// half-way, or when the host has opened the plug-in anew.
[[nodiscard]] bool RowShowsRecord(const ui::ListBox& list, const SelectedMapList& rotation,
                                  int row);

}  // namespace quill

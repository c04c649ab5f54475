// What the operator does on the map page: stepping the game type, taking maps into the rotation
// and out of it.
#pragma once

#include "dialog/frmrcBHDGS.h"

namespace quill {

// Connects the handlers of lstAvlMaps and lstSelMaps.
void ConnectRotation(frmrcBHDGS& dialog);

// On the rows that are selected; each is trapped, and shows the rotation anew. A move leaves its
// rows selected.
void AddSelectedMaps(frmrcBHDGS& dialog);
void RemoveSelectedMaps(frmrcBHDGS& dialog);
void MoveSelectedMaps(frmrcBHDGS& dialog, RowMove move);
// Whether they would change anything now.
[[nodiscard]] bool CanAddMaps(const frmrcBHDGS& dialog);
[[nodiscard]] bool CanRemoveMaps(const frmrcBHDGS& dialog);
[[nodiscard]] bool CanMoveMaps(const frmrcBHDGS& dialog, RowMove move);

// One change of the rotation back, or forth again. Trapped.
void UndoRotation(frmrcBHDGS& dialog);
void RedoRotation(frmrcBHDGS& dialog);

// The action of cmdRandomize: puts the rotation into a random order. Trapped.
void ShuffleRotation(frmrcBHDGS& dialog);

// The actions of cmdLeft and cmdRight: through all nine game types, from either end to the other.
// From a text that is no game type they go to the last and the first.
void ShowPreviousGameType(frmrcBHDGS& dialog);
void ShowNextGameType(frmrcBHDGS& dialog);

}  // namespace quill

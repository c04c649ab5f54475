// What the operator does on the map page: stepping the game type, taking maps into the rotation
// and out of it.
#pragma once

#include "dialog/frmrcBHDGS.h"

namespace quill {

// Connects the handlers of lstAvlMaps and lstSelMaps.
void ConnectRotation(frmrcBHDGS& dialog);

// The actions of cmdLeft and cmdRight: through all nine game types, from either end to the other.
// From a text that is no game type they go to the last and the first.
void ShowPreviousGameType(frmrcBHDGS& dialog);
void ShowNextGameType(frmrcBHDGS& dialog);

}  // namespace quill

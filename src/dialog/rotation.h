// What the operator does on the map page: stepping the game type, taking maps into the rotation
// and out of it, changing its order.
#pragma once

#include "dialog/frmrcBHDGS.h"

namespace quill {

// Connects the handlers, the menus and the keys of lstAvlMaps and lstSelMaps.
void ConnectRotation(frmrcBHDGS& dialog);

// The action of cmdRandomize: puts the rotation into a random order. Trapped.
void ShuffleRotation(frmrcBHDGS& dialog);

// The actions of cmdLeft and cmdRight: through all nine game types, from either end to the other.
// From a text that is no game type they go to the last and the first.
void ShowPreviousGameType(frmrcBHDGS& dialog);
void ShowNextGameType(frmrcBHDGS& dialog);

}  // namespace quill

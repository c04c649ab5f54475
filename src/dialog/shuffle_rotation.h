// The shuffle button: puts the rotation into a random order.
#pragma once

namespace quill {

class frmrcBHDGS;

// The action of cmdRandomize. Trapped.
void ShuffleRotation(frmrcBHDGS& dialog);

}  // namespace quill

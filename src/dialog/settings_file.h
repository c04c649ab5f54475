// Host-settings files: the options and the rotation, saved and loaded through the file kit.
#pragma once

namespace quill {

class frmrcBHDGS;

// The actions of cmdSave and cmdLoad. Trapped.
void SaveSettings(frmrcBHDGS& dialog);
void LoadSettings(frmrcBHDGS& dialog);

}  // namespace quill

// Host-settings files: the options and the rotation, saved and loaded through the file kit.
#pragma once

#include "support/text.h"

namespace quill {

class frmrcBHDGS;

inline constexpr TextView kSettingsSection = u"Settings";
inline constexpr TextView kMapKey = u"Map";  // a number from 0 follows
// A control's name is the part of a settings key before its first ".".
[[nodiscard]] TextView ControlNameOf(TextView key);

// The actions of cmdSave and cmdLoad. Trapped.
void SaveSettings(frmrcBHDGS& dialog);
void LoadSettings(frmrcBHDGS& dialog);

}  // namespace quill

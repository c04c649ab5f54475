// What a settings file that is about to be written into holds already. Saving writes key by key and
// removes nothing, so that a later load could read back more than was saved.
#pragma once

#include "support/text.h"

namespace quill {

class frmrcBHDGS;

inline constexpr TextView kSettingsSection = u"Settings";
inline constexpr TextView kMapKey = u"Map";  // a number from 0 follows

// Where the previous version of a settings file is kept.
[[nodiscard]] Text PreviousVersionName(TextView file);

// True when loading `file` after the options and `map_count` maps have been written into it would
// not give just those: it holds further maps or maps in another order, something for a control that
// none of the written keys replaces, or what cannot be read. Fails as the file kit does when it
// cannot read the section.
[[nodiscard]] bool WouldOutliveSaving(const frmrcBHDGS& dialog, TextView file, int map_count);

// A control's name is the part of a settings key before its first ".".
[[nodiscard]] TextView ControlNameOf(TextView key);

}  // namespace quill

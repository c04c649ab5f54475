// What a settings file that is about to be written into holds already. Saving writes key by key and
// removes nothing, so that a later load could read back more than was saved.
#pragma once

#include "support/text.h"

namespace quill {

class frmrcBHDGS;

inline constexpr TextView kSettingsSection = u"Settings";
inline constexpr TextView kMapKey = u"Map";  // a number from 0 follows

// True when loading `file` after the options and `map_count` maps have been written into it might
// give other options or maps: it holds further maps, maps in another order or before the mod, or
// something for an option or a list that none of the written keys replaces. Fails as the file kit
// does.
[[nodiscard]] bool WouldOutliveSaving(const frmrcBHDGS& dialog, TextView file, int map_count);

// A control's name is the part of a settings key before its first ".".
[[nodiscard]] TextView ControlNameOf(TextView key);

}  // namespace quill

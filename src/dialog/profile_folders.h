// The host's folders of the profile that opened the plug-in, where the operator keeps settings
// files and map-list files, and the question for a file in them.
#pragma once

#include "support/text.h"

namespace quill {

class frmrcBHDGS;
struct Session;

// HostRoot, "\profiles\", Index, "\settings".
[[nodiscard]] Text SettingsFolder(const Session& session);

// Makes sure that "profiles", the profile's folder in it and the settings folder exist, in that
// order. Fails as FileSystem::MakeFolder does.
void MakeSettingsFolders(Session& session);

// Asks the operator for a file, beginning in the settings folder. `filter` is description|pattern.
// The full path, of the first should several be picked; empty on cancel. A name without an
// extension gets the pattern's: always to save, and to open unless there is a file of the bare
// name. The system does not do that by itself.
[[nodiscard]] Text AskForFileToOpen(frmrcBHDGS& dialog, TextView title, TextView filter);
[[nodiscard]] Text AskForFileToSave(frmrcBHDGS& dialog, TextView title, TextView filter);

}  // namespace quill

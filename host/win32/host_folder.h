// The folder in which this program plays the host. The plug-in takes the folder of the host's
// program as the host's root, so the program runs as a copy of itself, with the library beside it,
// in a temporary folder that holds nothing else but a manifest, where one lies beside the program.
#pragma once

#include <optional>

#include "support/text.h"

namespace quill::host {

// Runs this command line in a copy inside a new temporary folder, waits for it and returns its
// exit code; nothing when this program is such a copy already. Fails with a RuntimeError that says
// what went wrong.
[[nodiscard]] std::optional<int> RunInHostFolder();

// The folder of this program, without a trailing backslash.
[[nodiscard]] Text HostFolderOfProgram();

// The same, with nothing left in it but the program, the library and the button pictures. Fails
// with kPermissionDenied in a folder that is not such a temporary one.
[[nodiscard]] Text FreshHostFolder();

// Puts the host's two button pictures under this folder.
void PutButtonPictures(const Text& root);

}  // namespace quill::host

// A small host with a window of its own, for people: the profile, the operator's rights, buttons to
// open and hide the plug-in, the remote machine's scenario and what happens, line by line.
#pragma once

#include <functional>

#include "host/win32/contract_log.h"
#include "host/win32/plugin_library.h"
#include "support/text.h"

namespace quill::host {

// Returns when the window is closed. `scenario` is a file's name, or empty for a machine with its
// initial settings; one that cannot be used is told as UsageError. `tell` is given each line of the
// window's log too.
void ShowHostWindow(const Text& scenario, const PluginLibrary& library, ContractLog& contract,
                    std::function<void(const Text& line)> tell);

}  // namespace quill::host

// A stage over the real library: it is loaded and called as a host does, its windows are operated
// by genuine messages, and what can be seen is what they show.
#pragma once

#include <memory>

#include "host/story/stage.h"
#include "host/win32/contract_log.h"
#include "host/win32/plugin_library.h"

namespace quill::host {

// Of this thread, which is in a single-threaded apartment; one stage at a time. The host's files
// lie in the folder of this program, which is emptied first. Library and log outlive the stage.
[[nodiscard]] std::unique_ptr<Stage> MakeNativeStage(const PluginLibrary& library,
                                                     ContractLog& contract);

}  // namespace quill::host

// A stage without a screen: the plug-in over mirrors, with the host's files in memory.
#pragma once

#include <memory>

#include "host/story/stage.h"

namespace quill::host {

[[nodiscard]] std::unique_ptr<Stage> MakeHeadlessStage();

}  // namespace quill::host

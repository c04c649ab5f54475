// Plays story files one after the other, each on a stage of its own, and tells how they went.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/story/stage.h"

namespace quill::host {

struct StoryFile {
  Text name;  // as it is told in failures
  std::string bytes;
};

using StageFactory = std::function<std::unique_ptr<Stage>()>;

// `differences`, when it has bytes, is the list of what must fail on this layer (see
// story.h). `tell` is given each line of the outcome: one for each failure,
//   stories/rights.story:12: expect lstMax enabled = true: expected "true", actual "false"
// one for each story, "passed: ..." or "FAILED: ...", and last "N passed, N failed". True when
// nothing failed; a list of differences that cannot be read fails the run before any story.
[[nodiscard]] bool RunStories(const std::vector<StoryFile>& files, const StageFactory& make_stage,
                              const StoryFile& differences,
                              const std::function<void(const Text& line)>& tell);

}  // namespace quill::host

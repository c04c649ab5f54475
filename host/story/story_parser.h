// Stories from their files. docs/story-language.md is the manual.
#pragma once

#include <string_view>
#include <vector>

#include "host/story/story.h"

namespace quill::host {

struct StoryFault {
  int line = 0;  // 1-based
  Text message;
};

struct ParsedStory {
  Story story;
  // What could not be understood; a story with faults is not to be played.
  std::vector<StoryFault> faults;
};

// `bytes` in an encoding of text_file.h; lines end in LF, CR LF or CR.
[[nodiscard]] ParsedStory ParseStory(std::string_view bytes);

}  // namespace quill::host

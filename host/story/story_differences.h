// Where one layer is known to differ: steps of stories that must fail on it, each with its reason.
//
// A file of lines, "#" beginning a comment:
//   story-file | step as it stands in the story, or its line number | reason
#pragma once

#include <string_view>
#include <vector>

#include "host/story/story.h"

namespace quill::host {

struct StoryDifference {
  int listed_at = 0;  // line of the list
  Text story;         // file name, without folders
  Text step;          // as written, or its line number
  Text reason;

  // `step` is meant by it, when the story is.
  [[nodiscard]] bool Means(const Step& other) const;
};

struct ParsedDifferences {
  std::vector<StoryDifference> differences;
  std::vector<StoryFault> faults;
};

[[nodiscard]] ParsedDifferences ParseDifferences(std::string_view bytes);

}  // namespace quill::host

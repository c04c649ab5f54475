// A story as its player sees it: steps in order, each with its line.
#pragma once

#include <optional>
#include <vector>

#include "host/story/story_grammar.h"
#include "support/text.h"

namespace quill::host {

// Stand in texts for what is known only while a story is played: the host's root folder, and a line
// number of the plug-in's sources. No story text can hold them otherwise.
inline constexpr char16_t kRootMark = 0xE000;
inline constexpr char16_t kLineMark = 0xE001;

struct Step {
  StepKind kind{};
  int line = 0;  // 1-based
  Text source;   // the line as written, without blanks around it
  // In the order of the pattern; the words that a last TEXTS or ROWS takes, each by itself.
  std::vector<Text> arguments;
  std::vector<Text> block;       // the lines below it that begin with "|"
  std::vector<Step> steps;       // those up to its "end"
  bool must_be_refused = false;  // a gesture that the stage must find impossible
};

struct Story {
  Text title;
  std::vector<Step> steps;
};

}  // namespace quill::host

// A story as its player sees it: steps in order, each with its line; and the list of what is known
// to differ on a layer. docs/story-language.md is the manual of both kinds of files.
#pragma once

#include <string_view>
#include <vector>

#include "host/story/story_words.h"
#include "support/number_text.h"
#include "support/text.h"

namespace quill::host {

struct StepForm;

struct Step {
  const StepForm* form = nullptr;  // its row in the table of steps
  int line = 0;                    // 1-based
  Text source;                     // the line as written, without blanks around it
  Words words;                     // what the pattern's words in capitals stand for, in order
  std::vector<Text> block;         // the lines below it that begin with "|"
  std::vector<Step> steps;         // those up to its "end"
  bool must_be_refused = false;    // a gesture that the stage must find impossible

  [[nodiscard]] const Text& operator[](std::size_t word) const { return words[word]; }
  [[nodiscard]] std::int32_t Number(std::size_t word) const { return ToInt32(words[word]); }
};

struct Story {
  Text title;
  std::vector<Step> steps;
};

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

// Where one layer is known to differ: steps of stories that must fail on it, each with its reason.
//
// A file of lines, "#" beginning a comment:
//   story-file | step as it stands in the story, or its line number | reason
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

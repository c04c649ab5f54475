// The words of one line of a story, and the way back from text to what can be written in one.
//
// Words are separated by blanks and tabs; a word in double quotes may hold blanks. A word that
// begins with "#" begins a comment, which reaches to the end of the line. Braces, in quotes or not,
// enclose what cannot be written as it is: {quote} {brace} {cr} {lf} {crlf} {tab} {nul}, {u+1F4A9}
// for any 16-bit unit by its hexadecimal code, {root} and {line} (see story.h).
#pragma once

#include <stdexcept>
#include <vector>

#include "support/text.h"

namespace quill::host {

struct StoryWord {
  Text text;
  bool is_quoted = false;
};

// A line that cannot be understood, with the reason in UTF-8.
class StorySyntaxError : public std::runtime_error {
 public:
  explicit StorySyntaxError(TextView reason) : std::runtime_error(ToUtf8(reason)) {}
};

[[nodiscard]] std::vector<StoryWord> SplitStoryWords(TextView line);

// The braces of `text` replaced by what they stand for.
[[nodiscard]] Text ResolveBraces(TextView text);

// `text` in double quotes, as a story would write it.
[[nodiscard]] Text QuotedForStory(TextView text);

}  // namespace quill::host

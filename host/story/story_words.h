// The words of one line of a story, and the way back from text to what can be written in one.
//
// Words are separated by blanks and tabs; a word in double quotes may hold blanks. A word that
// begins with "#" begins a comment, which reaches to the end of the line. Braces, in quotes or not,
// enclose what cannot be written as it is: {quote} {brace} {cr} {lf} {crlf} {tab} {nul}, {u+1F4A9}
// for any 16-bit unit by its hexadecimal code, {root} and {line}.
#pragma once

#include <initializer_list>
#include <vector>

#include "support/text.h"

namespace quill::host {

using Words = std::vector<Text>;

// Stand in texts for what is known only while a story is played: the host's root folder, and a line
// number of the plug-in's sources. No story text can hold them otherwise.
inline constexpr char16_t kRootMark = 0xE000;
inline constexpr char16_t kLineMark = 0xE001;

// A line that cannot be understood, or a step that fails.
class StoryFailure {
 public:
  explicit StoryFailure(std::initializer_list<TextView> message) : message_(Concat(message)) {}
  [[nodiscard]] const Text& message() const noexcept { return message_; }

 private:
  Text message_;
};

struct StoryWord {
  Text text;
  bool is_quoted = false;
};

[[nodiscard]] std::vector<StoryWord> SplitStoryWords(TextView line);

// The braces of `text` replaced by what they stand for.
[[nodiscard]] Text ResolveBraces(TextView text);

// `text` in double quotes, as a story would write it.
[[nodiscard]] Text QuotedForStory(TextView text);

}  // namespace quill::host

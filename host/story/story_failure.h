// What makes a story fail.
#pragma once

#include <initializer_list>
#include <utility>

#include "host/story/story_words.h"
#include "support/text.h"

namespace quill::host {

class StoryFailure {
 public:
  explicit StoryFailure(std::initializer_list<TextView> message) : message_(Concat(message)) {}
  [[nodiscard]] const Text& message() const noexcept { return message_; }

 private:
  Text message_;
};

[[noreturn]] inline void FailExpected(TextView expected, TextView actual) {
  throw StoryFailure(
      {u"expected ", QuotedForStory(expected), u", actual ", QuotedForStory(actual)});
}

}  // namespace quill::host

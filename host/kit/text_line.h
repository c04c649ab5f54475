// Taking apart the lines of a text that a person wrote, which end in CR LF, LF or CR, and joining
// lists.
#pragma once

#include <algorithm>
#include <vector>

#include "support/text.h"

namespace quill::host {

struct TextLine {
  TextView content;  // without its end
  TextView end;      // empty at the end of the text
};

// Takes the first line off `rest`, which is not empty.
[[nodiscard]] inline TextLine TakeLine(TextView& rest) {
  const std::size_t length = std::min(rest.find_first_of(u"\r\n"), rest.size());
  const std::size_t end = rest.substr(length).starts_with(kLineBreak) ? 2 : 1;
  const TextLine line{rest.substr(0, length), rest.substr(length, end)};
  rest.remove_prefix(length + line.end.size());
  return line;
}

// `text` without blanks and tabs around it.
[[nodiscard]] inline TextView WithoutBlanks(TextView text) noexcept {
  const std::size_t begin = text.find_first_not_of(u" \t");
  if (begin == TextView::npos) return {};
  return text.substr(begin, text.find_last_not_of(u" \t") - begin + 1);
}

// What stands behind the last separator of either kind.
[[nodiscard]] inline Text FileName(TextView path) {
  return Text(path.substr(path.find_last_of(u"/\\") + 1));
}

[[nodiscard]] inline Text Joined(const std::vector<Text>& pieces, TextView separator) {
  Text joined;
  for (const Text& piece : pieces) {
    joined += Concat({&piece == pieces.data() ? u"" : separator, piece});
  }
  return joined;
}

}  // namespace quill::host

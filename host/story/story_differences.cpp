// Reading of lists of differences.
#include "host/story/story_differences.h"

#include <algorithm>
#include <utility>

#include "host/kit/text_file.h"
#include "host/kit/text_line.h"

namespace quill::host {
bool StoryDifference::Means(const Step& other) const {
  return step == other.source || step == Decimal(other.line);
}

ParsedDifferences ParseDifferences(std::string_view bytes) {
  ParsedDifferences parsed;
  const Text text = DecodeTextFile(bytes).text;
  TextView rest = text;
  for (int line = 1; !rest.empty(); ++line) {
    const auto fault = [&](TextView what) { parsed.faults.push_back({line, Text(what)}); };
    const TextView entry = WithoutBlanks(TakeLine(rest).content);
    if (entry.empty() || entry.starts_with(u'#')) continue;
    const std::size_t first = entry.find(u" | ");
    const std::size_t last = entry.rfind(u" | ");
    if (first == last) {
      fault(u"a difference is written: story file | step or line number | reason");
      continue;
    }
    StoryDifference difference{line, Text(WithoutBlanks(entry.substr(0, first))),
                               Text(WithoutBlanks(entry.substr(first + 3, last - first - 3))),
                               Text(WithoutBlanks(entry.substr(last + 3)))};
    if (difference.story.empty() || difference.step.empty() || difference.reason.empty()) {
      fault(u"a difference names a story file, a step and a reason");
      continue;
    }
    const bool is_known = std::any_of(
        parsed.differences.begin(), parsed.differences.end(), [&](const StoryDifference& other) {
          return other.story == difference.story && other.step == difference.step;
        });
    if (is_known) {
      fault(u"this difference is listed already");
      continue;
    }
    parsed.differences.push_back(std::move(difference));
  }
  return parsed;
}

}  // namespace quill::host

// "quillhost story": operator stories.
#include <vector>

#include "host/cli/commands.h"
#include "host/story/story_run.h"

namespace quill::host {

int RunStoryCommand(const Arguments& arguments, const CommandLineParts& parts, Console& console) {
  StoryFile differences;
  if (const auto name = arguments.Option(u"--differences")) {
    differences = {*name, ReadArgumentFile(*name)};
  }
  std::vector<StoryFile> files;
  for (const Text& name : arguments.positional) files.push_back({name, ReadArgumentFile(name)});
  const bool all_passed = RunStories(files, parts.make_stage, differences,
                                     [&](const Text& line) { console.PrintLine(line); });
  return all_passed ? kExitGood : kExitBad;
}

}  // namespace quill::host

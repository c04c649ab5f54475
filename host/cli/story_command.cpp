// "quillhost story": operator stories.
#include "host/cli/commands.h"

namespace quill::host {

int RunStoryCommand(const Arguments& arguments, const CommandLineParts& parts, Console& console) {
  return parts.run_stories(arguments.positional, console);
}

}  // namespace quill::host

// The command line "quillhost", the same wherever the plug-in runs: what differs comes in as a
// stage.
#pragma once

#include <functional>
#include <memory>
#include <span>

#include "host/cli/console.h"
#include "host/story/stage.h"
#include "support/text.h"

namespace quill::host {

// What the program around the command line offers.
struct CommandLineParts {
  // A fresh host with the plug-in in it, for each job and each story.
  std::function<std::unique_ptr<Stage>()> make_stage;
  // When the stage can be looked at: told in the main job that the dialog is "empty", "filled" by
  // the reply and has a "rotation".
  std::function<void(Stage& stage, const Text& moment)> look = nullptr;
};

inline constexpr int kExitGood = 0;
inline constexpr int kExitBad = 1;    // the job was done and its outcome is bad
inline constexpr int kExitUsage = 2;  // the job was not begun: a wrong argument

// `words` are the arguments without the program's name. Returns the exit code and throws nothing.
[[nodiscard]] int RunCommandLine(std::span<const Text> words, const CommandLineParts& parts,
                                 Console& console);

}  // namespace quill::host

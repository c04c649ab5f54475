// The command line "quillhost", the same wherever the plug-in runs: what differs comes in as a
// stage.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "host/cli/console.h"
#include "host/story/stage.h"
#include "support/text.h"

namespace quill::host {

// What the program around the command line offers.
struct CommandLineParts {
  // A fresh host with the plug-in in it.
  std::function<std::unique_ptr<Stage>()> make_stage;
  // Plays story files, each on a fresh stage; the exit code.
  std::function<int(const std::vector<Text>& files, Console& console)> run_stories;
};

inline constexpr int kExitGood = 0;
inline constexpr int kExitBad = 1;    // the job was done and its outcome is bad
inline constexpr int kExitUsage = 2;  // the job was not begun: a wrong argument

// `words` are the arguments without the program's name. Returns the exit code and throws nothing.
[[nodiscard]] int RunCommandLine(std::span<const Text> words, const CommandLineParts& parts,
                                 Console& console);

}  // namespace quill::host

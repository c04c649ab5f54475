// The command line "quillhost", the same wherever the plug-in runs: what differs comes in as a
// stage.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <span>
#include <vector>

#include "host/story/stage.h"
#include "support/text.h"

namespace quill::host {

// A wrong argument, or a file named by one that cannot be used: the program ends with exit code 2.
class UsageError {
 public:
  explicit UsageError(Text message) : message_(std::move(message)) {}
  [[nodiscard]] const Text& message() const noexcept { return message_; }

 private:
  Text message_;
};

// UTF-8 lines to its output, and one line about what is wrong to its error output.
class Console {
 public:
  // Both streams outlive the console.
  Console(std::ostream& output, std::ostream& errors) : output_(output), errors_(errors) {}

  void Print(TextView text) { output_ << ToUtf8(text); }
  // Seen at once, also by one who reads through a pipe.
  void PrintLine(TextView line) { output_ << ToUtf8(line) << '\n' << std::flush; }
  void PrintError(TextView line) {
    output_ << std::flush;
    errors_ << "quillhost: " << ToUtf8(line) << '\n' << std::flush;
  }

 private:
  std::ostream& output_;
  std::ostream& errors_;
};

// The arguments of one command: options with a value each, and what is left.
struct CommandOption {
  TextView name;   // "--mod"
  TextView value;  // what its value is called in the help
  TextView help;
};

struct Arguments {
  std::vector<Text> positional;
  std::map<Text, Text> options;  // by name

  [[nodiscard]] std::optional<Text> Option(TextView name) const;
};

// Options are written "--mod VALUE" or "--mod=VALUE", anywhere; "--" ends them. Throws UsageError
// for an unknown option, one without its value and one given twice.
[[nodiscard]] Arguments ParseArguments(std::span<const Text> words,
                                       std::span<const CommandOption> options);

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

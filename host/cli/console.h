// Where a command line writes: UTF-8 lines to its output, and one line about what is wrong to its
// error output.
#pragma once

#include <ostream>
#include <string_view>

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

}  // namespace quill::host

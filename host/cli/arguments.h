// The arguments of one command: options with a value each, and what is left.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <vector>

#include "support/text.h"

namespace quill::host {

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

}  // namespace quill::host

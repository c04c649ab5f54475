// A start command, run by the system's command interpreter beside everything else.
#pragma once

#include <functional>
#include <optional>

#include "support/text.h"

namespace quill::host {

// Tells whether a command ended well; nothing while it runs. A command that is still running when
// this is destroyed is left to itself.
using CommandOutcome = std::function<std::optional<bool>()>;

[[nodiscard]] CommandOutcome LaunchCommand(const Text& command);

// `text` as one word for the interpreter.
[[nodiscard]] Text QuotedForCommand(TextView text);

}  // namespace quill::host

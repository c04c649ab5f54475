// Runs a start command beside everything else and tells when it has ended.
#pragma once

#include <memory>
#include <optional>
#include <string>

namespace quill::host {

class RunningCommand {
 public:
  virtual ~RunningCommand() = default;
  // True when it ended well, false when it did not; nothing while it runs.
  [[nodiscard]] virtual std::optional<bool> Outcome() = 0;
};

class CommandLauncher {
 public:
  virtual ~CommandLauncher() = default;
  // `command` is UTF-8 and goes to the system's command interpreter.
  [[nodiscard]] virtual std::unique_ptr<RunningCommand> Launch(const std::string& command) = 0;
};

// Runs commands with the system's interpreter. A command that is still
// running when its RunningCommand is destroyed is left to itself.
class SystemCommandLauncher final : public CommandLauncher {
 public:
  [[nodiscard]] std::unique_ptr<RunningCommand> Launch(const std::string& command) override;
};

// `text` as one word for the system's command interpreter.
[[nodiscard]] std::string QuotedForCommand(const std::string& text);

}  // namespace quill::host

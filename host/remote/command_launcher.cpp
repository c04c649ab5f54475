// The system's command interpreter on a detached thread.
#include "host/remote/command_launcher.h"

#include <atomic>
#include <cstdlib>
#include <thread>

namespace quill::host {
namespace {

enum class State : int { kRunning, kEndedWell, kEndedBadly };

class ThreadCommand final : public RunningCommand {
 public:
  explicit ThreadCommand(const std::string& command)
      : state_(std::make_shared<std::atomic<State>>(State::kRunning)) {
    std::thread([command, state = state_] {
      const int result = std::system(command.c_str());
      state->store(result == 0 ? State::kEndedWell : State::kEndedBadly);
    }).detach();
  }

  std::optional<bool> Outcome() override {
    const State state = state_->load();
    if (state == State::kRunning) return std::nullopt;
    return state == State::kEndedWell;
  }

 private:
  std::shared_ptr<std::atomic<State>> state_;
};

}  // namespace

std::unique_ptr<RunningCommand> SystemCommandLauncher::Launch(const std::string& command) {
  return std::make_unique<ThreadCommand>(command);
}

std::string QuotedForCommand(const std::string& text) {
  std::string quoted = "'";
  for (const char character : text) {
    if (character == '\'') {
      quoted += "'\\''";
    } else {
      quoted += character;
    }
  }
  return quoted + "'";
}

}  // namespace quill::host

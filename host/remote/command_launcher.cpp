// The system's command interpreter on a detached thread.
#include "host/remote/command_launcher.h"

#include <chrono>
#include <cstdlib>
#include <future>
#include <thread>

namespace quill::host {

CommandOutcome LaunchCommand(const Text& command) {
  std::packaged_task<int()> task([bytes = ToUtf8(command)] { return std::system(bytes.c_str()); });
  const std::shared_future<int> status = task.get_future().share();
  std::thread(std::move(task)).detach();
  return [status]() -> std::optional<bool> {
    if (status.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return std::nullopt;
    return status.get() == 0;
  };
}

Text QuotedForCommand(TextView text) {
  return Concat({u"'", ReplaceAll(text, u"'", u"'\\''"), u"'"});
}

}  // namespace quill::host

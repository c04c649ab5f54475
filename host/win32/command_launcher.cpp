// The system's command interpreter as a process of its own.
#include "host/remote/command_launcher.h"

#include <windows.h>

#include "win32/native_text.h"

namespace quill::host {
namespace {

class ProcessCommand final : public RunningCommand {
 public:
  explicit ProcessCommand(const std::string& command) {
    const wchar_t* const interpreter = ::_wgetenv(L"COMSPEC");
    Text line = interpreter != nullptr ? win32::FromWide(interpreter) : Text(u"cmd.exe");
    line += u" /c ";
    line += FromUtf8(command);
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION started = {};
    if (::CreateProcessW(nullptr, reinterpret_cast<wchar_t*>(line.data()), nullptr, nullptr, FALSE,
                         0, nullptr, nullptr, &start, &started) != FALSE) {
      ::CloseHandle(started.hThread);
      process_ = started.hProcess;
    }
  }
  ProcessCommand(const ProcessCommand&) = delete;
  ProcessCommand& operator=(const ProcessCommand&) = delete;
  ~ProcessCommand() override {
    if (process_ != nullptr) ::CloseHandle(process_);
  }

  std::optional<bool> Outcome() override {
    if (process_ == nullptr) return false;
    if (::WaitForSingleObject(process_, 0) == WAIT_TIMEOUT) return std::nullopt;
    DWORD code = 1;
    ::GetExitCodeProcess(process_, &code);
    return code == 0;
  }

 private:
  HANDLE process_ = nullptr;
};

}  // namespace

std::unique_ptr<RunningCommand> SystemCommandLauncher::Launch(const std::string& command) {
  return std::make_unique<ProcessCommand>(command);
}

// A path holds no double quote here.
std::string QuotedForCommand(const std::string& text) {
  return "\"" + text + "\"";
}

}  // namespace quill::host

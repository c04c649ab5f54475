// The system's command interpreter as a process of its own.
#include "host/remote/command_launcher.h"

#include <windows.h>

#include <memory>

#include "win32/native_text.h"

namespace quill::host {

CommandOutcome LaunchCommand(const Text& command) {
  const wchar_t* const interpreter = ::_wgetenv(L"COMSPEC");
  Text line = Concat(
      {interpreter != nullptr ? win32::FromWide(interpreter) : Text(u"cmd.exe"), u" /c ", command});
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  PROCESS_INFORMATION started = {};
  if (::CreateProcessW(nullptr, reinterpret_cast<wchar_t*>(line.data()), nullptr, nullptr, FALSE, 0,
                       nullptr, nullptr, &start, &started) == FALSE) {
    return [] { return false; };
  }
  ::CloseHandle(started.hThread);
  const std::shared_ptr<void> process(started.hProcess, &::CloseHandle);
  return [process]() -> std::optional<bool> {
    if (::WaitForSingleObject(process.get(), 0) == WAIT_TIMEOUT) return std::nullopt;
    DWORD code = 1;
    ::GetExitCodeProcess(process.get(), &code);
    return code == 0;
  };
}

// A path holds no double quote here.
Text QuotedForCommand(TextView text) {
  return Concat({u"\"", text, u"\""});
}

}  // namespace quill::host

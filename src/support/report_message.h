// The one message and error reporter: every message box of the plug-in and every report of a
// trapped failure goes through it.
#pragma once

#include <cstdint>
#include <memory>

#include "support/file_kit.h"
#include "support/message_box.h"
#include "support/runtime_error.h"
#include "support/text.h"

namespace quill {

// Which caption a box has. Values above kTrappedError show no box.
enum class MessageKind : std::uint8_t {
  kError = 0,           // "Error!"
  kSuccess = 1,         // "Success"
  kFailed = 2,          // "Failed!"
  kActionRequired = 3,  // "Action Required!"
  kTrappedError = 4,    // "DLL Error!"
};

class MessageReporter {
 public:
  // Both must outlive the reporter. `file_kit` may be exchanged at any time; while it is null every
  // use of it counts as failed.
  MessageReporter(const std::unique_ptr<FileKit>& file_kit, MessageBoxes& boxes) noexcept
      : file_kit_(file_kit), boxes_(boxes) {}

  // With an error: logs it through the file kit first, whatever the kind. Kinds 0 to 3 then show
  // `text`; kTrappedError takes `text` as the trap label, sends an error report and shows the
  // report with the word whether it was sent. The report is sent even when logging fails, and the
  // box shown even when neither works. Throws nothing but what the box itself throws.
  void ReportMessage(MessageKind kind, TextView text, const RuntimeError* error, std::int32_t line);

  // The end of every trap: reports `error` as kTrappedError unless its number is 0. When even that
  // fails, there is nothing left to tell the operator with.
  void ReportTrapped(TextView label, const RuntimeError& error, std::int32_t line) noexcept;

  // The file kit; kObjectNotSet while there is none.
  [[nodiscard]] FileKit& Kit() const;

  // A notice or validation message.
  void Show(MessageKind kind, TextView text) { ReportMessage(kind, text, nullptr, 0); }

 private:
  void Log(TextView label, const RuntimeError& error, std::int32_t line) const noexcept;
  bool Send(TextView label, const RuntimeError* error, std::int32_t line) const noexcept;

  const std::unique_ptr<FileKit>& file_kit_;
  MessageBoxes& boxes_;
};

}  // namespace quill

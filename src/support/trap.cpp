#include "support/trap.h"

namespace quill {

void ReportTrapped(MessageReporter& reporter, TextView label, const RuntimeError& error,
                   std::int32_t line) noexcept {
  if (error.Is(ErrorNumber::kNone)) return;
  try {
    reporter.ReportMessage(MessageKind::kTrappedError, label, &error, line);
  } catch (...) {
  }
}

}  // namespace quill

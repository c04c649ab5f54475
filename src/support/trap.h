// The error trap that host calls and event handlers run their steps in: a failure is reported with
// the procedure's label and the line of its failing statement, and goes no further.
//
//   Trapped(reporter, u"LoadInterface", [&](Line& at) {
//     at(), Index = index;
//     at(), TargetId = target.ElementText(1);
//   });
#pragma once

#include <cstdint>
#include <exception>
#include <source_location>

#include "support/report_message.h"
#include "support/runtime_error.h"
#include "support/text.h"

namespace quill {

// The line of the statement that a trapping procedure has come to. `at(), statement;` notes it.
//
// Nothing lighter tells it. The place where a failure is thrown lies in the called function, and
// mostly in another file than the label's; the platform's and the host's failures have no place at
// all. A place as a default argument of the called function would have to stand in every function
// that can fail, the standard library's too. A stack trace needs debug information, which is not
// shipped.
class Line {
 public:
  explicit Line(const std::source_location& begun_at) noexcept { (*this)(begun_at); }
  void operator()(const std::source_location& here = std::source_location::current()) noexcept {
    number_ = static_cast<std::int32_t>(here.line());
  }
  [[nodiscard]] std::int32_t number() const noexcept { return number_; }

 private:
  std::int32_t number_ = 0;
};

// Runs each step, also when one before it fails; the first failure is passed on at the end.
template <class... Steps>
void RunAll(Steps&&... steps) {
  std::exception_ptr first_failure;
  const auto run = [&](auto& step) {
    try {
      step();
    } catch (...) {
      if (first_failure == nullptr) first_failure = std::current_exception();
    }
  };
  (run(steps), ...);
  if (first_failure != nullptr) std::rethrow_exception(first_failure);
}

// The same where nobody can be told, as in restoring state after a failure: failures are dropped.
template <class... Steps>
void RunEach(Steps&&... steps) noexcept {
  try {
    RunAll(steps...);
  } catch (...) {
  }
}

struct NothingFirst {
  void operator()(RuntimeError&) const noexcept {}
};

// Runs `body(line)`. On any failure runs `before_report(error)` (to restore a pointer, to extend
// the description; a failure in it is dropped), then reports the error as kTrappedError under
// `label`. Returns true when the body ran to its end. An error with the number 0 is not reported.
// Until the body notes a line, the line is that of the call of Trapped. Nothing escapes: when even
// the box cannot be shown, nothing is left to tell the operator with.
template <class Body, class BeforeReport = NothingFirst>
bool Trapped(MessageReporter& reporter, TextView label, Body&& body,
             BeforeReport&& before_report = {},
             const std::source_location& begun_at = std::source_location::current()) noexcept {
  Line line(begun_at);
  try {
    body(line);
    return true;
  } catch (...) {
    RuntimeError error = CurrentRuntimeError();
    try {
      before_report(error);
    } catch (...) {
    }
    reporter.ReportTrapped(label, error, line.number());
    return false;
  }
}

}  // namespace quill

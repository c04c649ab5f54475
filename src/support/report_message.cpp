#include "support/report_message.h"

#include <iterator>
#include <new>

#include "support/version.h"

namespace quill {
namespace {

// By message kind.
constexpr TextView kCaptions[] = {u"Error!", u"Success", u"Failed!", u"Action Required!",
                                  u"DLL Error!"};

constexpr TextView kSent = u"Error Report Sent: Yes";
constexpr TextView kNotSent = u"Error Report Sent: Failed!";
// What the box says when there is no memory for the report text.
constexpr TextView kShortOfMemorySent = u"Out of memory\r\n\r\nError Report Sent: Yes";
constexpr TextView kShortOfMemoryNotSent = u"Out of memory\r\n\r\nError Report Sent: Failed!";

Text ReportText(TextView label, const RuntimeError* error, std::int32_t line, bool sent) {
  const TextView result = sent ? kSent : kNotSent;
  if (error == nullptr) return Concat({kLineBreak, kLineBreak, result});
  return Concat({u"Error Line: ", Decimal(line), kLineBreak,                                    //
                 u"Error ", Decimal(error->number()), u": ", error->description(), kLineBreak,  //
                 u"DLL: ", kLibraryFileName, kLineBreak,                                        //
                 u"Function/Sub: ", label,                                                      //
                 kLineBreak, kLineBreak, result});
}

}  // namespace

FileKit& MessageReporter::Kit() const {
  if (!file_kit_) throw RuntimeError(ErrorNumber::kObjectNotSet);
  return *file_kit_;
}

void MessageReporter::Log(TextView label, const RuntimeError& error,
                          std::int32_t line) const noexcept {
  try {
    Kit().LogError(kLibraryFileName, label, error, line);
  } catch (...) {
    // The report and the box still tell of the error.
  }
}

bool MessageReporter::Send(TextView label, const RuntimeError* error,
                           std::int32_t line) const noexcept {
  try {
    ErrorReport report;
    if (error != nullptr) {
      report.number = Decimal(error->number());
      report.description = error->description();
    }
    report.library = Concat({kLibraryFileName, u" ", kVersionText});
    report.label = label;
    report.reserved = u"0";
    report.line = line;
    return Kit().SendErrorReport(report);
  } catch (...) {
    return false;
  }
}

void MessageReporter::ReportMessage(MessageKind kind, TextView text, const RuntimeError* error,
                                    std::int32_t line) {
  if (error != nullptr) Log(text, *error, line);

  if (kind > MessageKind::kTrappedError) return;
  const TextView caption = kCaptions[static_cast<std::size_t>(kind)];
  if (kind < MessageKind::kTrappedError) {
    boxes_.ShowMessage(caption, text);
    return;
  }

  const bool sent = Send(text, error, line);
  Text report;
  TextView shown = sent ? kShortOfMemorySent : kShortOfMemoryNotSent;
  try {
    report = ReportText(text, error, line, sent);
    shown = report;
  } catch (const std::bad_alloc&) {
  }
  boxes_.ShowMessage(caption, shown);
}

}  // namespace quill

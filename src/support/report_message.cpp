// The steps of a report, none of which may keep the next one from being tried.
#include "support/report_message.h"

#include <iterator>
#include <new>

#include "support/version.h"

namespace quill {
namespace {

// By message kind.
constexpr TextView kCaptions[] = {u"Error!", u"Success", u"Failed!", u"Action Required!",
                                  u"DLL Error!"};

// What the box says when there is no memory for the report text, by whether the report was sent.
// Constants, because nothing can be joined then.
constexpr TextView kShortOfMemory[] = {u"Out of memory\r\n\r\nError Report Sent: Failed!",
                                       u"Out of memory\r\n\r\nError Report Sent: Yes"};

Text ReportText(TextView label, const RuntimeError* error, std::int32_t line, bool sent) {
  // The last line, with the empty one before it.
  const TextView result = kShortOfMemory[sent].substr(kShortOfMemory[sent].find(kLineBreak));
  if (error == nullptr) return Text(result);
  return Concat({u"Error Line: ", Decimal(line), kLineBreak,                                    //
                 u"Error ", Decimal(error->number()), u": ", error->description(), kLineBreak,  //
                 u"DLL: ", kLibraryFileName, kLineBreak,                                        //
                 u"Function/Sub: ", label, result});
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

  // Before the box, which says whether the report was sent and lets host calls in while it is open.
  const bool sent = Send(text, error, line);
  Text report;
  TextView shown = kShortOfMemory[sent];
  try {
    report = ReportText(text, error, line, sent);
    shown = report;
  } catch (const std::bad_alloc&) {
    // The constant that was chosen above is shown.
  }
  boxes_.ShowMessage(caption, shown);
}

void MessageReporter::ReportTrapped(TextView label, const RuntimeError& error,
                                    std::int32_t line) noexcept {
  // To automation clients the number 0 means that there is no error.
  if (error.Is(ErrorNumber::kNone)) return;
  try {
    ReportMessage(MessageKind::kTrappedError, label, &error, line);
  } catch (...) {
    // The box failed: nothing is left to tell the operator with.
  }
}

}  // namespace quill

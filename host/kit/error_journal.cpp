// Wording and appending of journal entries.
#include "host/kit/error_journal.h"

#include <array>

#include "host/kit/text_file.h"

namespace quill::host {
namespace {

// Text from outside as part of an entry: further lines are indented, so that none of them looks
// like an entry of its own, and other control characters become blanks.
Text Quoted(TextView text) {
  Text quoted;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char16_t unit = text[at];
    if (unit == u'\r' || unit == u'\n') {
      if (text.substr(at).starts_with(kLineBreak)) ++at;
      quoted += u"\r\n    ";
    } else {
      quoted += unit < 0x20 ? u' ' : unit;
    }
  }
  return quoted;
}

}  // namespace

Text LogTime(std::time_t time) {
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%SZ", std::gmtime(&time));
  return FromUtf8(text.data());
}

ErrorJournal::ErrorJournal(TextView host_root, FileSystem& files, FileStorage& storage)
    : folder_(Concat({host_root, u"\\logs"})),
      log_path_(Concat({folder_, u"\\error-log.txt"})),
      report_path_(Concat({folder_, u"\\error-reports.txt"})),
      files_(files),
      storage_(storage) {}

void ErrorJournal::AddLogEntry(TextView library, TextView label, std::int32_t number,
                               TextView description, std::int32_t line) {
  Append(log_path_,
         Concat({LogTime(), u"  ", Quoted(library), u"  ", Quoted(label), u", line ", Decimal(line),
                 u": error ", Decimal(number), u", ", Quoted(description), u"\r\n"}));
}

void ErrorJournal::AddReport(const ErrorReport& report) {
  Append(
      report_path_,
      Concat({LogTime(), u"\r\n  Number:      ", Quoted(report.number), u"\r\n  Description: ",
              Quoted(report.description), u"\r\n  Library:     ", Quoted(report.library),
              u"\r\n  Procedure:   ", Quoted(report.label), u"\r\n  Reserved:    ",
              Quoted(report.reserved), u"\r\n  Line:        ", Decimal(report.line), u"\r\n\r\n"}));
}

void ErrorJournal::Append(TextView path, TextView entry) {
  if (!files_.FolderExists(folder_)) files_.MakeFolder(folder_);
  storage_.Append(path, EncodeTextFile(entry));
}

}  // namespace quill::host

// Faults before calls, and the wording of what is remembered.
#include "host/story/breakable_file_kit.h"

namespace quill::host {

Text LogLine(TextView library, TextView label, std::int32_t line, std::int32_t number,
             TextView description) {
  return Concat({library, u", ", label, u", line ", Decimal(line), u": error ", Decimal(number),
                 u", ", description});
}

Text ReportLine(const ErrorReport& report) {
  return Concat({report.number, u" | ", report.description, u" | ", report.library, u" | ",
                 report.label, u" | ", report.reserved, u" | ", Decimal(report.line)});
}

std::optional<KitFault> KitScript::TakeFault(TextView operation) {
  const auto found = faults_.find(Text(operation));
  if (found == faults_.end()) return std::nullopt;
  const KitFault fault = found->second;
  if (!fault.from_there_on) faults_.erase(found);
  return fault;
}

bool BreakableFileKit::Refused(TextView operation) {
  const std::optional<KitFault> fault = script_.TakeFault(operation);
  if (!fault) return false;
  if (fault->number == 0) return true;
  throw RuntimeError(fault->number, fault->description);
}

void BreakableFileKit::WriteFile(TextView path, TextView text) {
  if (!Refused(u"WriteFile")) kit_.WriteFile(path, text);
}

Text BreakableFileKit::CompressString(TextView text) {
  return Refused(u"CompressString") ? Text() : kit_.CompressString(text);
}

Text BreakableFileKit::DecompressString(TextView compressed, std::int32_t length) {
  return Refused(u"DecompressString") ? Text() : kit_.DecompressString(compressed, length);
}

std::optional<IniElements> BreakableFileKit::GetIniSection(TextView section, TextView path) {
  if (Refused(u"GetIniSection")) return std::nullopt;
  return kit_.GetIniSection(section, path);
}

IniEntry BreakableFileKit::ParseIniKey(TextView line) {
  return Refused(u"ParseIniKey") ? IniEntry() : kit_.ParseIniKey(line);
}

Text BreakableFileKit::ParseIniValue(TextView line) {
  return Refused(u"ParseIniKey") ? Text() : kit_.ParseIniValue(line);
}

void BreakableFileKit::WriteIniKey(TextView section, TextView key, TextView value, TextView path) {
  if (!Refused(u"WriteIniKey")) kit_.WriteIniKey(section, key, value, path);
}

void BreakableFileKit::LogError(TextView library, TextView label, const RuntimeError& error,
                                std::int32_t line) {
  script_.AddLogLine(LogLine(library, label, line, error.number(), error.description()));
  if (!Refused(u"LogError")) kit_.LogError(library, label, error, line);
}

bool BreakableFileKit::SendErrorReport(const ErrorReport& report) {
  script_.AddReportLine(ReportLine(report));
  return !Refused(u"SendErrorReport") && kit_.SendErrorReport(report);
}

}  // namespace quill::host

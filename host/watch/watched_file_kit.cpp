// Each call goes on to the kit behind this one.
#include "host/watch/watched_file_kit.h"

#include <utility>

#include "headless/spared_allocations.h"

namespace quill::host {

Text LogLine(TextView library, TextView label, TextView line, TextView number,
             TextView description) {
  return Concat({library, u", ", label, u", line ", line, u": error ", number, u", ", description});
}

std::optional<KitFault> KitWatch::TakeFault(TextView operation) {
  const auto found = faults.find(Text(operation));
  if (found == faults.end()) return std::nullopt;
  const KitFault fault = found->second;
  if (!fault.from_there_on) faults.erase(found);
  return fault;
}

std::vector<Text> KitWatch::TakeLog() {
  std::vector<Text> lines;
  for (const LoggedFailure& failure : std::exchange(failures, {})) {
    lines.push_back(LogLine(failure.library, failure.label, Decimal(failure.line),
                            Decimal(failure.number), failure.description));
  }
  return lines;
}

std::vector<Text> KitWatch::TakeReports() {
  std::vector<Text> lines;
  for (const ErrorReport& report : std::exchange(reports, {})) {
    lines.push_back(
        Concat({report.number, u" | ", report.description, u" | ", report.library, u" | ",
                report.label, u" | ", report.reserved, u" | ", Decimal(report.line)}));
  }
  return lines;
}

template <class Call>
auto WatchedFileKit::Watched(TextView operation, TextView what, const Call& call)
    -> decltype(call()) {
  const headless::SparedAllocations spared;
  if (watch_.before && !watch_.before(operation, what)) return decltype(call())();
  if (const std::optional<KitFault> fault = watch_.TakeFault(operation)) {
    if (fault->number != 0) throw RuntimeError(fault->number, fault->description);
    return decltype(call())();
  }
  return call();
}

void WatchedFileKit::WriteFile(TextView path, TextView text) {
  const headless::SparedAllocations spared;
  watch_.files.push_back({Text(path), Text(text)});
  Watched(u"WriteFile", path, [&] { kit_.WriteFile(path, text); });
}

Text WatchedFileKit::CompressString(TextView text) {
  return Watched(u"CompressString", text, [&] { return kit_.CompressString(text); });
}

Text WatchedFileKit::DecompressString(TextView compressed, std::int32_t length) {
  return Watched(u"DecompressString", compressed,
                 [&] { return kit_.DecompressString(compressed, length); });
}

std::optional<IniElements> WatchedFileKit::GetIniSection(TextView section, TextView path) {
  return Watched(u"GetIniSection", path, [&] { return kit_.GetIniSection(section, path); });
}

IniEntry WatchedFileKit::ParseIniKey(TextView line) {
  return Watched(u"ParseIniKey", line, [&] { return kit_.ParseIniKey(line); });
}

Text WatchedFileKit::ParseIniValue(TextView line) {
  return Watched(u"ParseIniValue", line, [&] { return kit_.ParseIniValue(line); });
}

void WatchedFileKit::WriteIniKey(TextView section, TextView key, TextView value, TextView path) {
  Watched(u"WriteIniKey", key, [&] { kit_.WriteIniKey(section, key, value, path); });
}

void WatchedFileKit::LogError(TextView library, TextView label, const RuntimeError& error,
                              std::int32_t line) {
  const headless::SparedAllocations spared;
  watch_.failures.push_back(
      {Text(library), Text(label), error.number(), Text(error.description()), line});
  Watched(u"LogError", label, [&] { kit_.LogError(library, label, error, line); });
}

bool WatchedFileKit::SendErrorReport(const ErrorReport& report) {
  const headless::SparedAllocations spared;
  watch_.reports.push_back(report);
  return Watched(u"SendErrorReport", report.label, [&] { return kit_.SendErrorReport(report); });
}

}  // namespace quill::host

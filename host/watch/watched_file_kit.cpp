// Each call goes on to the kit behind this one.
#include "host/watch/watched_file_kit.h"

#include "headless/spared_allocations.h"

namespace quill::host {

template <class Call>
auto WatchedFileKit::Watched(TextView operation, TextView what, const Call& call)
    -> decltype(call()) {
  const headless::SparedAllocations spared;
  if (watch_.before && !watch_.before(operation, what)) return decltype(call())();
  return call();
}

void WatchedFileKit::WriteFile(TextView path, TextView text) {
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

void WatchedFileKit::LogError(TextView, TextView label, const RuntimeError& error,
                              std::int32_t line) {
  const headless::SparedAllocations spared;
  watch_.failures.push_back({Text(label), error.number(), Text(error.description()), line});
  Watched(u"LogError", label, [] {});
}

bool WatchedFileKit::SendErrorReport(const ErrorReport& report) {
  return Watched(u"SendErrorReport", report.label, [] { return true; });
}

}  // namespace quill::host

// Each call goes on to the kit behind this one.
#include "host/check/watched_file_kit.h"

namespace quill::host {

void WatchedFileKit::WriteFile(TextView path, TextView text) {
  kit_.WriteFile(path, text);
}

Text WatchedFileKit::CompressString(TextView text) {
  return kit_.CompressString(text);
}

Text WatchedFileKit::DecompressString(TextView compressed, std::int32_t length) {
  return kit_.DecompressString(compressed, length);
}

std::optional<std::vector<Text>> WatchedFileKit::GetIniSection(TextView section, TextView path) {
  return kit_.GetIniSection(section, path);
}

IniEntry WatchedFileKit::ParseIniKey(TextView line) {
  if (watch_.on_entry) watch_.on_entry(line);
  return kit_.ParseIniKey(line);
}

Text WatchedFileKit::ParseIniValue(TextView line) {
  return kit_.ParseIniValue(line);
}

void WatchedFileKit::WriteIniKey(TextView section, TextView key, TextView value, TextView path) {
  kit_.WriteIniKey(section, key, value, path);
}

void WatchedFileKit::LogError(TextView, TextView label, const RuntimeError& error, std::int32_t) {
  watch_.failures.push_back({Text(label), error.number(), Text(error.description())});
}

bool WatchedFileKit::SendErrorReport(const ErrorReport&) {
  return true;
}

}  // namespace quill::host

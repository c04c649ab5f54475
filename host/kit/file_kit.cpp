// The kit's operations, each a step or two over its parts.
#include "host/kit/file_kit.h"

#include <string>
#include <utility>

#include "host/kit/compression.h"
#include "host/kit/ini_text.h"
#include "host/kit/text_file.h"

namespace quill::host {

void HostFileKit::WriteFile(TextView path, TextView text) {
  storage_.Replace(path, EncodeTextFile(text));
}

Text HostFileKit::CompressString(TextView text) {
  return CompressText(text);
}

Text HostFileKit::DecompressString(TextView compressed, std::int32_t length) {
  return DecompressText(compressed, length);
}

std::optional<IniElements> HostFileKit::GetIniSection(TextView section, TextView path) {
  const std::optional<std::string> bytes = storage_.ReadWhole(path);
  if (!bytes) return std::nullopt;
  std::optional<std::vector<Text>> entries = IniSection(DecodeTextFile(*bytes).text, section);
  if (!entries) return std::nullopt;
  entries->emplace_back();
  const std::size_t count = entries->size();
  return IniElements{count, [kept = std::move(*entries)](std::size_t i) { return kept.at(i); }};
}

IniEntry HostFileKit::ParseIniKey(TextView line) {
  return SplitIniEntry(line);
}

Text HostFileKit::ParseIniValue(TextView line) {
  return SplitIniEntry(line).value;
}

void HostFileKit::WriteIniKey(TextView section, TextView key, TextView value, TextView path) {
  const std::string bytes = storage_.ReadWhole(path).value_or(std::string());
  const DecodedFile file = DecodeTextFile(bytes);
  storage_.Replace(path,
                   EncodeTextFile(WithIniEntry(file.text, section, key, value), file.encoding));
}

void HostFileKit::LogError(TextView library, TextView label, const RuntimeError& error,
                           std::int32_t line) {
  journal_.AddLogEntry(library, label, error.number(), error.description(), line);
}

bool HostFileKit::SendErrorReport(const ErrorReport& report) try {
  journal_.AddReport(report);
  return true;
} catch (const RuntimeError&) {
  return false;
}

}  // namespace quill::host

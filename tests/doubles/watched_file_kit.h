// A file kit that passes everything on to another one, keeps the failures that were logged, and
// fails where it is told to.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "support/file_kit.h"

namespace quill {

class WatchedFileKit final : public FileKit {
 public:
  explicit WatchedFileKit(FileKit& kit) noexcept : kit_(kit) {}

  struct Failure {
    Text label;
    std::int32_t number;
    Text description;
    std::int32_t line;
  };
  std::vector<Failure> failures;
  // Runs before the settings operations with the key or the line; throws to make one fail, and
  // answers false to make a write do nothing.
  std::function<bool(TextView operation, TextView what)> before;

  void WriteFile(TextView path, TextView text) override { kit_.WriteFile(path, text); }
  Text CompressString(TextView text) override { return kit_.CompressString(text); }
  Text DecompressString(TextView compressed, std::int32_t length) override {
    return kit_.DecompressString(compressed, length);
  }
  std::optional<std::vector<Text>> GetIniSection(TextView section, TextView path) override {
    if (before) before(u"GetIniSection", section);
    return kit_.GetIniSection(section, path);
  }
  IniEntry ParseIniKey(TextView line) override {
    if (before) before(u"ParseIniKey", line);
    return kit_.ParseIniKey(line);
  }
  Text ParseIniValue(TextView line) override { return kit_.ParseIniValue(line); }
  void WriteIniKey(TextView section, TextView key, TextView value, TextView path) override {
    if (before && !before(u"WriteIniKey", key)) return;
    kit_.WriteIniKey(section, key, value, path);
  }
  void LogError(TextView, TextView label, const RuntimeError& error, std::int32_t line) override {
    failures.push_back({Text(label), error.number(), Text(error.description()), line});
  }
  bool SendErrorReport(const ErrorReport&) override { return true; }

 private:
  FileKit& kit_;
};

}  // namespace quill

// A file kit that lets another one do the work and tells what goes through it: the entries of
// settings files as they are taken, and the failures that the plug-in reports.
#pragma once

#include <functional>
#include <vector>

#include "support/file_kit.h"

namespace quill::host {

struct ReportedFailure {
  Text label;
  std::int32_t number = 0;
  Text description;
};

// What has been seen; outlives the kits that tell it.
struct KitWatch {
  std::function<void(TextView entry)> on_entry;  // before it is split
  std::vector<ReportedFailure> failures;
};

class WatchedFileKit final : public FileKit {
 public:
  // Both must outlive this one.
  WatchedFileKit(FileKit& kit, KitWatch& watch) noexcept : kit_(kit), watch_(watch) {}

  void WriteFile(TextView path, TextView text) override;
  Text CompressString(TextView text) override;
  Text DecompressString(TextView compressed, std::int32_t length) override;
  std::optional<std::vector<Text>> GetIniSection(TextView section, TextView path) override;
  IniEntry ParseIniKey(TextView line) override;
  Text ParseIniValue(TextView line) override;
  void WriteIniKey(TextView section, TextView key, TextView value, TextView path) override;
  void LogError(TextView library, TextView label, const RuntimeError& error,
                std::int32_t line) override;
  bool SendErrorReport(const ErrorReport& report) override;

 private:
  FileKit& kit_;
  KitWatch& watch_;
};

}  // namespace quill::host

// The host's file kit behind its automation object.
#pragma once

#include "com/late_bound.h"
#include "support/file_kit.h"

namespace quill::com {

class ComFileKit final : public FileKit {
 public:
  explicit ComFileKit(LateBound kit) : kit_(std::move(kit)) {}

  void WriteFile(TextView path, TextView text) override;
  Text CompressString(TextView text) override;
  Text DecompressString(TextView compressed, std::int32_t length) override;
  std::optional<IniElements> GetIniSection(TextView section, TextView path) override;
  IniEntry ParseIniKey(TextView line) override;
  Text ParseIniValue(TextView line) override;
  void WriteIniKey(TextView section, TextView key, TextView value, TextView path) override;
  void LogError(TextView library, TextView label, const RuntimeError& error,
                std::int32_t line) override;
  bool SendErrorReport(const ErrorReport& report) override;

 private:
  LateBound kit_;
};

}  // namespace quill::com

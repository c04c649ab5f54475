// A file kit that lets another one do the work, tells what goes through it, keeps the failures that
// the plug-in has logged, and fails where it is told to.
#pragma once

#include <functional>
#include <vector>

#include "support/file_kit.h"

namespace quill::host {

struct LoggedFailure {
  Text label;
  std::int32_t number = 0;
  Text description;
  std::int32_t line = 0;
};

// What is told and seen; outlives the kits that use it.
struct KitWatch {
  // Told before each operation, with its path, key, label or text; the operation fails when this
  // throws, and does nothing when it answers false.
  std::function<bool(TextView operation, TextView what)> before;
  // What LogError was told, also when it then failed. It goes no further.
  std::vector<LoggedFailure> failures;
};

class WatchedFileKit final : public FileKit {
 public:
  // Both must outlive this one.
  WatchedFileKit(FileKit& kit, KitWatch& watch) noexcept : kit_(kit), watch_(watch) {}

  void WriteFile(TextView path, TextView text) override;
  Text CompressString(TextView text) override;
  Text DecompressString(TextView compressed, std::int32_t length) override;
  std::optional<IniElements> GetIniSection(TextView section, TextView path) override;
  IniEntry ParseIniKey(TextView line) override;
  Text ParseIniValue(TextView line) override;
  void WriteIniKey(TextView section, TextView key, TextView value, TextView path) override;
  void LogError(TextView library, TextView label, const RuntimeError& error,
                std::int32_t line) override;
  // Answers true and goes no further either.
  bool SendErrorReport(const ErrorReport& report) override;

 private:
  template <class Call>
  auto Watched(TextView operation, TextView what, const Call& call) -> decltype(call());

  FileKit& kit_;
  KitWatch& watch_;
};

}  // namespace quill::host

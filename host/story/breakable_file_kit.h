// A file kit that a story can break: it passes every call on to the kit behind it unless a fault is
// set for the operation, and remembers what went into the error log and the report store.
#pragma once

#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "host/story/stage.h"
#include "support/file_kit.h"

namespace quill::host {

// "kvrrcBHDGS.dll, RemoteData, line 77: error 13, Type mismatch"
[[nodiscard]] Text LogLine(TextView library, TextView label, std::int32_t line, std::int32_t number,
                           TextView description);
// The six values of a report, in order and joined by " | ".
[[nodiscard]] Text ReportLine(const ErrorReport& report);

// The faults that are set, and what has been remembered; outlives the kits that use it.
class KitScript {
 public:
  void Break(const KitFault& fault) { faults_[fault.operation] = fault; }
  void Repair() { faults_.clear(); }
  // The fault of that operation, if there is one; a fault for one call is then used up.
  [[nodiscard]] std::optional<KitFault> TakeFault(TextView operation);

  [[nodiscard]] bool HasLogged() const noexcept { return !log_.empty(); }
  void AddLogLine(Text line) { log_.push_back(std::move(line)); }
  void AddReportLine(Text line) { reports_.push_back(std::move(line)); }
  [[nodiscard]] std::vector<Text> TakeLog() { return std::exchange(log_, {}); }
  [[nodiscard]] std::vector<Text> TakeReports() { return std::exchange(reports_, {}); }

 private:
  std::map<Text, KitFault> faults_;
  std::vector<Text> log_;
  std::vector<Text> reports_;
};

class BreakableFileKit final : public FileKit {
 public:
  // Both must outlive this one.
  BreakableFileKit(FileKit& kit, KitScript& script) noexcept : kit_(kit), script_(script) {}

  void WriteFile(TextView path, TextView text) override;
  Text CompressString(TextView text) override;
  Text DecompressString(TextView compressed, std::int32_t length) override;
  std::optional<IniElements> GetIniSection(TextView section, TextView path) override;
  IniEntry ParseIniKey(TextView line) override;
  Text ParseIniValue(TextView line) override;
  void WriteIniKey(TextView section, TextView key, TextView value, TextView path) override;
  // What a failing call was handed is remembered all the same: the plug-in has told it.
  void LogError(TextView library, TextView label, const RuntimeError& error,
                std::int32_t line) override;
  bool SendErrorReport(const ErrorReport& report) override;

 private:
  // Fails when the operation is to fail; true when it is to do nothing and answer false.
  bool Refused(TextView operation);

  FileKit& kit_;
  KitScript& script_;
};

}  // namespace quill::host

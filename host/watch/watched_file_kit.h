// A file kit that lets another one do the work, tells what goes through it, keeps what the plug-in
// has written, logged and reported, and fails where it is told to.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "support/file_kit.h"

namespace quill::host {

struct WrittenFile {
  Text path;
  Text text;
};

struct LoggedFailure {
  Text library;
  Text label;
  std::int32_t number = 0;
  Text description;
  std::int32_t line = 0;
};

// "kvrrcBHDGS.dll, RemoteData, line 77: error 13, Type mismatch"
[[nodiscard]] Text LogLine(TextView library, TextView label, TextView line, TextView number,
                           TextView description);

// How the next call of an operation goes wrong.
struct KitFault {
  // For example u"CompressString"; u"CreateFileKit" and u"CreateMemoryKit" stand for the creation
  // of the two service objects, which fails whatever the number.
  Text operation;
  std::int32_t number = 0;  // 0: no failure, but the operation does nothing and answers false
  Text description;
  bool from_there_on = false;  // every later call of it too
};

// What is told and seen; outlives the kits that use it.
struct KitWatch {
  // Told before each operation, with its path, key, label or text; the operation fails when this
  // throws, and does nothing when it answers false.
  std::function<bool(TextView operation, TextView what)> before;
  std::map<Text, KitFault> faults;  // by operation
  // What the kit was handed to write, log and report, also when it then failed.
  std::vector<WrittenFile> files;
  std::vector<LoggedFailure> failures;
  std::vector<ErrorReport> reports;

  void Break(const KitFault& fault) { faults[fault.operation] = fault; }
  // The fault of that operation, if there is one; a fault for one call is then used up.
  [[nodiscard]] std::optional<KitFault> TakeFault(TextView operation);
  // `failures` and `reports` in words since the last call: LogLine, and the six values of a report
  // joined by " | ".
  [[nodiscard]] std::vector<Text> TakeLog();
  [[nodiscard]] std::vector<Text> TakeReports();
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
  bool SendErrorReport(const ErrorReport& report) override;

 private:
  template <class Call>
  auto Watched(TextView operation, TextView what, const Call& call) -> decltype(call());

  FileKit& kit_;
  KitWatch& watch_;
};

}  // namespace quill::host

// The host's record of failures, kept for people: an error log with one line per failure and a
// store of error reports with one paragraph each, both UTF-8 text files in the "logs" folder that
// only grow.
#pragma once

#include <ctime>

#include "host/kit/file_storage.h"
#include "support/file_kit.h"
#include "support/file_system.h"

namespace quill::host {

// Universal time to the second, such as "2004-03-31 18:05:09Z".
[[nodiscard]] Text LogTime(std::time_t time = std::time(nullptr));

class ErrorJournal {
 public:
  // The logs lie in `host_root`\logs; the folder is made when the first entry is written. The file
  // system and the storage must outlive the journal.
  ErrorJournal(TextView host_root, FileSystem& files, FileStorage& storage);

  // Adds to error-log.txt:
  //   2004-03-31 18:05:09Z  kvrrcBHDGS.dll  RemoteData, line 77: error 13, Type mismatch
  // A description of several lines is indented below its first one.
  void AddLogEntry(TextView library, TextView label, std::int32_t number, TextView description,
                   std::int32_t line);

  // Adds to error-reports.txt: the time, then each value of the report under its name, then an
  // empty line.
  void AddReport(const ErrorReport& report);

  [[nodiscard]] const Text& log_path() const noexcept { return log_path_; }
  [[nodiscard]] const Text& report_path() const noexcept { return report_path_; }

 private:
  void Append(TextView path, TextView entry);

  Text folder_;
  Text log_path_;
  Text report_path_;
  FileSystem& files_;
  FileStorage& storage_;
};

}  // namespace quill::host

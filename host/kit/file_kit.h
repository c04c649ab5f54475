// The reference host's file kit: request files, compressed texts, INI files, the error journal.
// Texts become bytes as text_file.h tells; INI rules are those of ini_text.h, compressed texts
// those of compression.h.
#pragma once

#include "host/kit/error_journal.h"
#include "host/kit/file_storage.h"
#include "support/file_kit.h"

namespace quill::host {

class HostFileKit final : public FileKit {
 public:
  // Both must outlive the kit.
  HostFileKit(FileStorage& storage, ErrorJournal& journal) noexcept
      : storage_(storage), journal_(journal) {}

  void WriteFile(TextView path, TextView text) override;
  Text CompressString(TextView text) override;
  Text DecompressString(TextView compressed, std::int32_t length) override;
  // A missing file has no sections.
  std::optional<IniElements> GetIniSection(TextView section, TextView path) override;
  IniEntry ParseIniKey(TextView line) override;
  Text ParseIniValue(TextView line) override;
  // The file is replaced as a whole: it holds the old or the new text, never a part.
  void WriteIniKey(TextView section, TextView key, TextView value, TextView path) override;
  void LogError(TextView library, TextView label, const RuntimeError& error,
                std::int32_t line) override;
  // Sending is keeping here: true once the report is in the journal, false when it cannot be kept.
  bool SendErrorReport(const ErrorReport& report) override;

 private:
  FileStorage& storage_;
  ErrorJournal& journal_;
};

}  // namespace quill::host

// The plug-in without a screen, its dialog open and filled by a machine's reply, for loading one
// file as an operator does: by the dialog's own buttons and its file dialog.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "dialog/frmrcBHDGS.h"
#include "headless/fixed_process_paths.h"
#include "headless/headless_operator.h"
#include "headless/headless_toolkit.h"
#include "headless/memory_file_system.h"
#include "headless/settable_clock.h"
#include "headless/watched_file_kit.h"
#include "host/check/file_account.h"
#include "host/kit/error_journal.h"
#include "host/kit/file_kit.h"
#include "host/kit/memory_storage.h"
#include "plugin/clsPlugin.h"

namespace quill::host {

class DialogTrial final : private HostServices {
 public:
  explicit DialogTrial(const TrialConditions& conditions);

  // Opens the dialog, runs `use` and closes it. A failure of `use` comes out again.
  void WhileOpen(const std::function<void()>& use);

  // For `use`. Return once the file is loaded, or its loading has failed.
  void LoadSettings(std::string_view bytes, const std::function<void(TextView entry)>& on_entry);
  void LoadMapList(std::string_view bytes);

  // The bytes as the plug-in's own file system reads them.
  [[nodiscard]] std::unique_ptr<ByteReader> Reader(std::string_view bytes);

  [[nodiscard]] frmrcBHDGS& dialog() { return *module_.dialog.dialog; }
  [[nodiscard]] const MapLists& maps() const { return module_.dialog.maps; }
  [[nodiscard]] const CodePage& code_page() const { return module_.dialog.code_page; }
  [[nodiscard]] bool UsesTeamSabreMaps() const;
  // What the plug-in has reported since the dialog was filled, in order.
  [[nodiscard]] const std::vector<headless::LoggedFailure>& failures() const {
    return watch_.failures;
  }
  [[nodiscard]] const headless::LoggedFailure* FailureOf(TextView label) const;

 private:
  std::unique_ptr<FileKit> CreateFileKit() override;
  std::unique_ptr<MemoryKit> CreateMemoryKit() override;
  void Fill();
  void Push(TextView button);

  const TrialConditions& conditions_;
  headless::MemoryFileSystem files_;
  MemoryStorage storage_{files_};
  ErrorJournal journal_;
  HostFileKit kit_{storage_, journal_};
  headless::KitWatch watch_;
  headless::FixedProcessPaths paths_;
  headless::SettableClock clock_;
  headless::HeadlessToolkit toolkit_{files_};
  mdlBHDGS module_{{toolkit_, files_, paths_, clock_, CodePage::Windows1252(), *this}};
  clsPlugin plugin_{module_};
  headless::HeadlessOperator operator_{
      toolkit_, [this]() -> ui::Form* { return module_.dialog.dialog.get(); }};
};

// Completes an account whose lines are there: what the dialog shows now, and the sums.
void Conclude(DialogTrial& trial, FileAccount& account);

}  // namespace quill::host

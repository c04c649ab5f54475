// The plug-in without a screen, its dialog open and filled by a machine's reply, for loading one
// file as an operator does: by the dialog's own buttons and its file dialog.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "host/check/file_account.h"
#include "host/headless/headless_host.h"

namespace quill::host {

class DialogTrial final {
 public:
  explicit DialogTrial(const TrialConditions& conditions) : conditions_(conditions) {}

  // Opens the dialog, runs `use` and closes it. A failure of `use` comes out again.
  void WhileOpen(const std::function<void()>& use);

  // For `use`. Return once the file is loaded, or its loading has failed.
  void LoadSettings(std::string_view bytes, const std::function<void(TextView entry)>& on_entry);
  void LoadMapList(std::string_view bytes);

  // The bytes as the plug-in's own file system reads them.
  [[nodiscard]] std::unique_ptr<ByteReader> Reader(std::string_view bytes);

  [[nodiscard]] frmrcBHDGS& dialog() { return *host_.module.dialog; }
  [[nodiscard]] const MapLists& maps() const { return host_.module.maps; }
  [[nodiscard]] const CodePage& code_page() const { return host_.module.code_page; }
  [[nodiscard]] bool UsesTeamSabreMaps() const;
  // What the plug-in has reported since the dialog was filled, in order.
  [[nodiscard]] const std::vector<LoggedFailure>& failures() const { return host_.watch.failures; }
  [[nodiscard]] const LoggedFailure* FailureOf(TextView label) const;
  // Why a stored map reference, its fields as the file has them, finds no map. For people; says
  // nothing about maps that are found.
  [[nodiscard]] Text WhyMissing(TextView code, TextView flag, TextView file) const;
  // Completes an account of everything: what the dialog shows now.
  void Conclude(FileAccount& account);

 private:
  void Fill();
  void Push(TextView button);

  const TrialConditions& conditions_;
  HeadlessHost host_;
};

}  // namespace quill::host

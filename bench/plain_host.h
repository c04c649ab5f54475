// The host without a screen with a file kit that costs as little as possible, so that what is
// measured is ours: it keeps lines and compresses nothing.
#pragma once

#include <functional>
#include <memory>
#include <unordered_map>

#include "host/headless/headless_host.h"

namespace quill::bench {

// One INI section, whatever its name and file. A failure that the plug-in reports ends the program:
// there would be nothing to measure.
class PlainFileKit final : public FileKit {
 public:
  void WriteFile(TextView, TextView text) override { written = text; }
  Text CompressString(TextView text) override { return Text(text); }
  // What each compressed text stands for; decompressing takes as long as copying it.
  Text decompressed;
  Text DecompressString(TextView, std::int32_t) override { return decompressed; }
  std::optional<IniElements> GetIniSection(TextView, TextView) override;
  IniEntry ParseIniKey(TextView line) override;
  Text ParseIniValue(TextView line) override;
  void WriteIniKey(TextView, TextView key, TextView value, TextView) override;
  void LogError(TextView, TextView label, const RuntimeError& error, std::int32_t line) override;
  bool SendErrorReport(const ErrorReport&) override { return true; }

  Text written;

 private:
  std::vector<Text> lines_;
  std::unordered_map<Text, std::size_t> places_;  // of each key's line
};

struct PlainHost : host::HeadlessHost {
  Session& session = module;
  PlainFileKit* kit = nullptr;

  PlainHost();

  // The dialog, created hidden, with two mods of which the second, with all maps, is chosen.
  frmrcBHDGS& Dialog();
  // Shows it to the operator for as long as `script` runs.
  void Show(const std::function<void(frmrcBHDGS& dialog)>& script);
  // Puts the first maps of the catalogue into the rotation, over and over.
  void Select(int count);
};

}  // namespace quill::bench

// All options and a full rotation, each time by way of the file dialog's answer.
#include "bench/settings_bench.h"

#include "bench/measurements.h"
#include "bench/plain_host.h"
#include "dialog/profile_folders.h"
#include "dialog/settings_file.h"

namespace quill::bench {
namespace {

void RunAction(benchmark::State& state, void (*action)(frmrcBHDGS&)) {
  PlainHost host;
  frmrcBHDGS& dialog = host.Dialog();
  host.Select(kRotationLimit);
  const Text folder = SettingsFolder(host.session);
  const Text file = Concat({folder, u"\\night.hsf"});
  host.memory.MakeFolders(folder);
  host.memory.SetContents(file, "[Settings]");
  const auto answer = [&] { host.toolkit.AnswerNextFileDialog({file}); };
  answer();
  SaveSettings(dialog);
  for (auto _ : state) {
    answer();
    action(dialog);
    static_cast<void>(host.toolkit.TakeMessages());
  }
  if (host.session.maps.selected.Count() != kRotationLimit) state.SkipWithError("maps are missing");
}

}  // namespace

void RegisterSettings() {
  Measure("settings/save", [](benchmark::State& state) { RunAction(state, SaveSettings); });
  Measure("settings/load", [](benchmark::State& state) { RunAction(state, LoadSettings); });
}

}  // namespace quill::bench

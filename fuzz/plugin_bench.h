// The plug-in in a host without a screen, over files in memory, as the heavier fuzzers drive it.
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "dialog/frmrcBHDGS.h"
#include "fuzz/fuzz_target.h"
#include "headless/fixed_process_paths.h"
#include "headless/headless_operator.h"
#include "headless/plugin_invariants.h"
#include "headless/settable_clock.h"
#include "host/kit/error_journal.h"
#include "host/kit/file_kit.h"
#include "host/kit/memory_kit.h"
#include "host/kit/memory_storage.h"
#include "host/remote/scenario.h"
#include "host/story/breakable_file_kit.h"
#include "host/story/button_pictures.h"
#include "plugin/clsPlugin.h"

namespace quill::fuzz {

// Two mods, three maps of its own, fixed values.
[[nodiscard]] const host::Scenario& Machine();

class PluginBench final : private HostServices {
 public:
  PluginBench();

  // Opens the dialog, fills it by the machine's reply, runs `use` and closes it.
  void WhileFilled(const std::function<void()>& use);
  // Opens the dialog for as long as `pump` returns true.
  void Open(std::function<bool()> pump);
  void SetRights(unsigned granted_bits);
  // Presses and releases a button whose file dialog is answered by `path`.
  void Use(TextView button, TextView path);
  // The failures that the operator was told of since the last call; with every other message taken
  // away too.
  [[nodiscard]] int TakeFailures();
  // Tells what does not hold and ends the run, if anything.
  void CheckInvariants(const headless::Expectations& expected = {}) const;

 private:
  std::unique_ptr<FileKit> CreateFileKit() override {
    return std::make_unique<host::BreakableFileKit>(kit_, script);
  }
  std::unique_ptr<MemoryKit> CreateMemoryKit() override {
    return std::make_unique<host::HostMemoryKit>();
  }

 public:
  headless::MemoryFileSystem files;
  host::MemoryStorage storage{files};
  host::KitScript script;

 private:
  host::ErrorJournal journal_{u"C:\\Host", files, storage, host::SystemTime()};
  host::HostFileKit kit_{storage, journal_};
  headless::FixedProcessPaths paths_;

 public:
  headless::SettableClock clock{1};
  headless::HeadlessToolkit toolkit{files};
  mdlBHDGS module{{toolkit, files, paths_, clock, CodePage::Windows1252(), *this}};
  clsPlugin plug_in{module};
  headless::HeadlessOperator person{toolkit,
                                    [this]() -> ui::Form* { return module.dialog.dialog.get(); }};
};

}  // namespace quill::fuzz

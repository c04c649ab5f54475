// A host without a screen around the plug-in: its kits over files in memory, its clock, and the
// operator in front of the dialog. What the plug-in asks of the kit, the files and the toolkit can
// be seen and made to fail.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "dialog/frmrcBHDGS.h"
#include "headless/fixed_process_paths.h"
#include "headless/headless_operator.h"
#include "headless/headless_toolkit.h"
#include "headless/memory_file_system.h"
#include "headless/settable_clock.h"
#include "host/headless/host_objects.h"
#include "host/kit/error_journal.h"
#include "host/kit/file_kit.h"
#include "host/kit/file_storage.h"
#include "host/watch/watched_file_kit.h"
#include "host/watch/watched_file_system.h"
#include "plugin/clsPlugin.h"

namespace quill::host {

class HeadlessHost : private HostServices {
 public:
  static constexpr TextView kRoot = u"C:\\Host";

  // The pictures of the buttons are there; the plug-in has not been called yet.
  HeadlessHost();
  // Lets the plug-in go, and its dialog with it.
  ~HeadlessHost() override;
  HeadlessHost(const HeadlessHost&) = delete;
  HeadlessHost& operator=(const HeadlessHost&) = delete;

  // The plug-in's object, created by the first call.
  [[nodiscard]] clsPlugin& plug_in();
  // Opens the dialog, with the toolkit's events from `pump` while it is shown. What the toolkit
  // played before goes on afterwards.
  void Display(std::int32_t profile, const HostArray& target, std::function<bool()> pump);
  // The same, with `use` as the only event.
  void Open(std::int32_t profile, const HostArray& target, const std::function<void()>& use);

  headless::MemoryFileSystem memory{kRoot};
  host::WatchedFileSystem files{memory};
  headless::HeadlessToolkit toolkit{memory};
  headless::SettableClock clock{1};
  headless::FixedProcessPaths paths;
  MemoryStorage storage{memory};
  ErrorJournal journal{kRoot, memory, storage};
  HostFileKit host_kit{storage, journal};
  host::KitWatch watch;
  mdlBHDGS module{{toolkit, files, clock, CodePage::Windows1252()}, paths, *this};
  headless::HeadlessOperator person{toolkit, [this]() -> ui::Form* { return module.dialog.get(); }};

  // Told before "CreateFileKit" and "CreateMemoryKit"; the object is not offered when it throws.
  std::function<void(TextView call)> before_create;
  // Makes the file kit that is handed out; where unset, `host_kit` is, with `watch` in front of it.
  std::function<std::unique_ptr<FileKit>()> make_file_kit;

 private:
  void BeforeCreating(TextView call, TextView object);
  std::unique_ptr<FileKit> CreateFileKit() override;
  std::unique_ptr<MemoryKit> CreateMemoryKit() override;

  std::unique_ptr<clsPlugin> plug_in_;
};

}  // namespace quill::host

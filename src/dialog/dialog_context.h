// What the dialog works with: the platform, the host's file kit, the model lists, and where the
// host keeps its files. It lives as long as the library is loaded and outlives every dialog.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "maps/map_lists.h"
#include "support/clock.h"
#include "support/code_page.h"
#include "support/file_kit.h"
#include "support/file_system.h"
#include "support/report_message.h"
#include "ui/toolkit.h"

namespace quill {

class frmrcBHDGS;

struct DialogContext {
  DialogContext(ui::Toolkit& toolkit_used, FileSystem& files_used, Clock& clock_used,
                const CodePage& code_page_used)
      : toolkit(toolkit_used),
        files(files_used),
        clock(clock_used),
        code_page(code_page_used),
        file_kit(std::make_unique<AbsentFileKit>()),
        reporter(file_kit, toolkit_used) {}
  DialogContext(const DialogContext&) = delete;
  DialogContext& operator=(const DialogContext&) = delete;

  ui::Toolkit& toolkit;
  FileSystem& files;
  Clock& clock;
  const CodePage& code_page;

  std::unique_ptr<FileKit> file_kit;  // never null
  MessageReporter reporter;

  Text HostRoot;           // no trailing backslash
  std::int32_t Index = 0;  // the host's profile number

  MapLists maps;

  // The one dialog, null while there is none.
  std::shared_ptr<frmrcBHDGS> dialog;

  // What the Start button's release does.
  std::function<void(frmrcBHDGS&)> start_game;
};

// The dialog, created hidden (its load procedure runs) when there is none.
[[nodiscard]] std::shared_ptr<frmrcBHDGS> TakeDialog(DialogContext& context);

}  // namespace quill

// The state of the plug-in between host calls: the platform, the host's kits, the model lists, the
// dialog, and what the host has said. It lives as long as the library is loaded and outlives every
// dialog.
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

struct Session {
  Session(ui::Toolkit& toolkit_used, FileSystem& files_used, Clock& clock_used,
          const CodePage& code_page_used)
      : toolkit(toolkit_used),
        files(files_used),
        clock(clock_used),
        code_page(code_page_used),
        reporter(file_kit, toolkit_used) {}
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  ui::Toolkit& toolkit;
  FileSystem& files;
  Clock& clock;
  const CodePage& code_page;

  std::unique_ptr<FileKit> file_kit;  // null: the host offers none
  MessageReporter reporter;
  // The file kit; kObjectNotSet while there is none.
  [[nodiscard]] FileKit& kit() const { return reporter.Kit(); }

  Text HostRoot;           // no trailing backslash
  std::int32_t Index = 0;  // the host's profile number
  Text TargetId;           // the remote side's id, as the host gave it
  Text PendingCommand;     // whose reply is awaited: empty, kLoadFormCommand or kStartGameCommand

  MapLists maps;

  // The one dialog, null while there is none.
  std::shared_ptr<frmrcBHDGS> dialog;

  // What the Start button's release does.
  std::function<void(frmrcBHDGS&)> start_game;
};

// The dialog, created hidden (its load procedure runs) when there is none.
[[nodiscard]] std::shared_ptr<frmrcBHDGS> TakeDialog(Session& session);

}  // namespace quill

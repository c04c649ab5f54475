// The state of the plug-in between host calls: the platform, the host's kits, the model lists, the
// dialog, and what the host has said. It lives as long as the library is in use. A dialog that is
// unloaded at its end may be destroyed after it, and no longer touches it.
#pragma once

#include <cstdint>
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

// What the platform offers; everything outlives the session.
struct Platform {
  ui::Toolkit& toolkit;
  FileSystem& files;
  Clock& clock;
  const CodePage& code_page;
};

struct Session : Platform {
  explicit Session(const Platform& platform) : Platform(platform), reporter(file_kit, toolkit) {}
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

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
  // Ends the busy pointer of a failed call, which must not create a dialog only for that.
  void RestorePointer() const;

  // What the Start button's release does; null: nothing.
  void (*start_game)(frmrcBHDGS& dialog) = nullptr;
};

// The dialog, created hidden (its load procedure runs) when there is none.
[[nodiscard]] std::shared_ptr<frmrcBHDGS> TakeDialog(Session& session);

}  // namespace quill

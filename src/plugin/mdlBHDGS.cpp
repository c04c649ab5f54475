// Start-up, and letting go of the host.
#include "plugin/mdlBHDGS.h"

#include <utility>

#include "dialog/frmrcBHDGS.h"
#include "remote/start_command.h"
#include "support/trap.h"

namespace quill {

mdlBHDGS::mdlBHDGS(const Platform& platform)
    : dialog(platform.toolkit, platform.files, platform.clock, platform.code_page),
      remote(dialog),
      platform_(platform) {
  dialog.start_game = [this](frmrcBHDGS& pressed_in) { StartGame(remote, pressed_in); };
}

mdlBHDGS::~mdlBHDGS() {
  try {
    ReleaseHost();
  } catch (...) {
  }
}

void mdlBHDGS::SubMain() {
  if (std::exchange(started_, true)) return;
  Trapped(dialog.reporter, u"SubMain", [&](Line& at) {
    at(), dialog.HostRoot = ResolveHostRoot(platform_.paths);
    at(), dialog.file_kit = platform_.services.CreateFileKit();
    at(), memory_kit = platform_.services.CreateMemoryKit();
  });
}

void mdlBHDGS::ReleaseHost() {
  started_ = false;
  NameCol.reset();
  ValCol.reset();
  memory_kit.reset();
  dialog.file_kit = std::make_unique<AbsentFileKit>();
  if (frmrcBHDGS* const unused = dialog.dialog.get(); unused && !unused->shown()) unused->Unload();
}

}  // namespace quill

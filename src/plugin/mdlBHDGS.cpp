// Start-up, and letting go of the host.
#include "plugin/mdlBHDGS.h"

#include <utility>

#include "dialog/frmrcBHDGS.h"
#include "remote/start_command.h"
#include "support/trap.h"

namespace quill {

mdlBHDGS::mdlBHDGS(const Platform& platform)
    : Session(platform.toolkit, platform.files, platform.clock, platform.code_page),
      platform_(platform) {
  start_game = [this](frmrcBHDGS& pressed_in) { StartGame(*this, pressed_in); };
}

mdlBHDGS::~mdlBHDGS() {
  try {
    ReleaseHost();
  } catch (...) {
  }
}

void mdlBHDGS::SubMain() {
  if (std::exchange(started_, true)) return;
  Trapped(reporter, u"SubMain", [&](Line& at) {
    at(), HostRoot = ResolveHostRoot(platform_.paths);
    at(), file_kit = platform_.services.CreateFileKit();
    at(), memory_kit = platform_.services.CreateMemoryKit();
  });
}

void mdlBHDGS::ReleaseHost() {
  started_ = false;
  NameCol.reset();
  ValCol.reset();
  memory_kit.reset();
  file_kit.reset();
  if (frmrcBHDGS* const unused = dialog.get(); unused && !unused->shown()) unused->Unload();
}

}  // namespace quill

// Start-up, and letting go of the host.
#include "plugin/mdlBHDGS.h"

#include <utility>

#include "dialog/frmrcBHDGS.h"
#include "remote/start_command.h"
#include "support/trap.h"

namespace quill {

mdlBHDGS::mdlBHDGS(const Platform& platform, ProcessPaths& paths, HostServices& services)
    : Session(platform), paths_(paths), services_(services) {
  start_game = StartGame;
}

mdlBHDGS::~mdlBHDGS() {
  try {
    ReleaseHost();
  } catch (...) {
    // The host is unloading the library, and nobody is left to tell.
  }
}

void mdlBHDGS::SubMain() {
  if (std::exchange(started_, true)) return;
  Trapped(reporter, u"SubMain", [&](Line& at) {
    at(), HostRoot = ResolveHostRoot(paths_);
    at(), file_kit = services_.CreateFileKit();
    // Only held: no member of it is called.
    at(), memory_kit = services_.CreateMemoryKit();
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

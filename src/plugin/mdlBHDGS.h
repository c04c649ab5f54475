// The main module: start-up, and the session with what only the plug-in's class knows of.
#pragma once

#include <memory>

#include "dialog/session.h"
#include "plugin/host_services.h"
#include "plugin/host_values.h"
#include "remote/request_file.h"
#include "support/clock.h"
#include "support/code_page.h"
#include "support/file_system.h"
#include "support/host_environment.h"
#include "ui/toolkit.h"

namespace quill {

// What the platform offers; everything outlives the module.
struct Platform {
  ui::Toolkit& toolkit;
  FileSystem& files;
  ProcessPaths& paths;
  Clock& clock;
  const CodePage& code_page;
  HostServices& services;
};

class mdlBHDGS : public Session {
 public:
  explicit mdlBHDGS(const Platform& platform);
  ~mdlBHDGS();

  // Start-up: resolves HostRoot and creates the host's service objects. Runs once; later calls do
  // nothing. Trapped.
  void SubMain();

  // Lets go of everything that belongs to the host (service objects, rights) and unloads a dialog
  // that is not shown, so that the library may be unloaded. The other values stay; the next SubMain
  // creates the service objects again.
  void ReleaseHost();

  std::unique_ptr<MemoryKit> memory_kit;
  std::shared_ptr<HostCollection> NameCol;
  std::shared_ptr<HostCollection> ValCol;

 private:
  Platform platform_;
  bool started_ = false;
};

}  // namespace quill

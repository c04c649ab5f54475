// The main module: start-up, and the session with what only the plug-in's class knows of.
#pragma once

#include <memory>

#include "dialog/session.h"
#include "plugin/host_objects.h"
#include "remote/request_file.h"
#include "support/host_environment.h"

namespace quill {

class mdlBHDGS : public Session {
 public:
  // All of it outlives the module.
  mdlBHDGS(const Platform& platform, ProcessPaths& paths, HostServices& services);
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
  ProcessPaths& paths_;
  HostServices& services_;
  bool started_ = false;
};

}  // namespace quill

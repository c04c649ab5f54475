// The paths of a process that does not exist.
#pragma once

#include <utility>

#include "support/host_environment.h"

namespace quill::headless {

class FixedProcessPaths final : public ProcessPaths {
 public:
  // An empty `executable` stands for a platform that cannot tell.
  explicit FixedProcessPaths(Text executable = u"C:\\Host\\host.exe",
                             Text plugin_folder = u"C:\\Host\\Plugins")
      : executable_(std::move(executable)), plugin_folder_(std::move(plugin_folder)) {}

  Text ExecutablePath(std::size_t buffer_size) override {
    return executable_.substr(0, buffer_size);
  }
  Text PluginFolder() override { return plugin_folder_; }

 private:
  Text executable_;
  Text plugin_folder_;
};

}  // namespace quill::headless

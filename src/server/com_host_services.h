// Creates the host's service objects through automation.
#pragma once

#include "plugin/host_objects.h"

namespace quill::com {

class ComHostServices final : public HostServices {
 public:
  [[nodiscard]] std::unique_ptr<FileKit> CreateFileKit() override;
  [[nodiscard]] std::unique_ptr<MemoryKit> CreateMemoryKit() override;
};

}  // namespace quill::com

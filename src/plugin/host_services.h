// Creates the host's two service objects by their programmatic names.
#pragma once

#include <memory>

#include "support/file_kit.h"

namespace quill {

inline constexpr TextView kMemoryKitProgId = u"rcMemKit.clsMemKit";

// Created and held, never called.
class MemoryKit {
 public:
  virtual ~MemoryKit() = default;
};

class HostServices {
 public:
  virtual ~HostServices() = default;
  // Both fail with kCannotCreateObject when the host does not offer the object.
  [[nodiscard]] virtual std::unique_ptr<FileKit> CreateFileKit() = 0;
  [[nodiscard]] virtual std::unique_ptr<MemoryKit> CreateMemoryKit() = 0;
};

}  // namespace quill

#include "server/com_host_services.h"

#include <utility>

#include "com/late_bound.h"
#include "server/com_file_kit.h"

namespace quill::com {
namespace {

class ComMemoryKit final : public MemoryKit {
 public:
  explicit ComMemoryKit(LateBound kit) noexcept : kit_(std::move(kit)) {}

 private:
  LateBound kit_;
};

}  // namespace

std::unique_ptr<FileKit> ComHostServices::CreateFileKit() {
  return std::make_unique<ComFileKit>(LateBound::Create(kFileKitProgId));
}

std::unique_ptr<MemoryKit> ComHostServices::CreateMemoryKit() {
  return std::make_unique<ComMemoryKit>(LateBound::Create(kMemoryKitProgId));
}

}  // namespace quill::com

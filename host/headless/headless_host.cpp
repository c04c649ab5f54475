#include "host/headless/headless_host.h"

#include <utility>

#include "host/kit/memory_kit.h"
#include "host/story/button_pictures.h"
#include "support/runtime_error.h"

namespace quill::host {

Text HostTexts::ElementText(std::int32_t index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= texts_.size()) {
    throw RuntimeError(ErrorNumber::kSubscriptOutOfRange);
  }
  return texts_[static_cast<std::size_t>(index)];
}

HeadlessHost::HeadlessHost() {
  memory.MakeFolders(Concat({kRoot, u"\\imgs"}));
  memory.SetContents(Concat({kRoot, kReleasedPicturePath}), kReleasedPicture);
  memory.SetContents(Concat({kRoot, kPressedPicturePath}), kPressedPicture);
}

HeadlessHost::~HeadlessHost() {
  toolkit.before_call = nullptr;
  module.ReleaseHost();
  toolkit.RunDeferred();
}

clsPlugin& HeadlessHost::plug_in() {
  if (!plug_in_) plug_in_ = std::make_unique<clsPlugin>(module);
  return *plug_in_;
}

void HeadlessHost::Open(std::int32_t profile, const HostArray& target,
                        const std::function<void()>& use) {
  bool used = false;
  auto outer = std::exchange(toolkit.pump, [&] {
    if (std::exchange(used, true)) return false;
    use();
    return true;
  });
  plug_in().LoadInterface(profile, 0, target);
  toolkit.pump = std::move(outer);
}

std::unique_ptr<FileKit> HeadlessHost::CreateFileKit() {
  if (before_create) before_create(u"CreateFileKit");
  if (make_file_kit) return make_file_kit();
  return std::make_unique<host::WatchedFileKit>(host_kit, watch);
}

std::unique_ptr<MemoryKit> HeadlessHost::CreateMemoryKit() {
  if (before_create) before_create(u"CreateMemoryKit");
  return std::make_unique<HostMemoryKit>();
}

}  // namespace quill::host

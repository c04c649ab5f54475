// Its parts put together.
#include "host/headless/headless_host.h"

#include <utility>

#include "host/headless/button_pictures.h"
#include "support/runtime_error.h"

namespace quill::host {

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

void HeadlessHost::Display(std::int32_t profile, const HostArray& target,
                           std::function<bool()> pump) {
  struct Restored {
    std::function<bool()>& pump;
    std::function<bool()> outer;
    ~Restored() { pump = std::move(outer); }
  } const restored{toolkit.pump, std::exchange(toolkit.pump, std::move(pump))};
  plug_in().LoadInterface(profile, 0, target);
}

void HeadlessHost::Open(std::int32_t profile, const HostArray& target,
                        const std::function<void()>& use) {
  Display(profile, target, [&, used = false]() mutable {
    if (std::exchange(used, true)) return false;
    use();
    return true;
  });
}

// Fails in the words of a host that offers an object by name and then cannot make it.
void HeadlessHost::BeforeCreating(TextView call, TextView object) {
  if (before_create) before_create(call);
  if (!watch.TakeFault(call)) return;
  constexpr auto kNumber = ErrorNumber::kCannotCreateObject;
  throw RuntimeError(
      kNumber, Concat({DefaultDescription(static_cast<std::int32_t>(kNumber)), u": ", object}));
}

std::unique_ptr<FileKit> HeadlessHost::CreateFileKit() {
  BeforeCreating(u"CreateFileKit", kFileKitProgId);
  if (make_file_kit) return make_file_kit();
  return std::make_unique<WatchedFileKit>(host_kit, watch);
}

std::unique_ptr<MemoryKit> HeadlessHost::CreateMemoryKit() {
  BeforeCreating(u"CreateMemoryKit", kMemoryKitProgId);
  return std::make_unique<MemoryKit>();
}

}  // namespace quill::host

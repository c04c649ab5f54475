// The plug-in object as the host holds it: called late-bound as a host in a script
// language calls it.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "com/com_ptr.h"
#include "com/late_bound.h"
#include "host/story/stage.h"
#include "support/text.h"

namespace quill::host {

// The operator's rights as this host's collection: keyed by name without regard to letter case,
// with Item and Count, failing with "invalid procedure call" for a missing key.
[[nodiscard]] com::ComPtr<IDispatch> MakeRightsCollection(std::vector<Right> rights);

class PluginClient {
 public:
  explicit PluginClient(com::LateBound plugin) : plugin_(std::move(plugin)) {}

  [[nodiscard]] Text DllVersion();
  // A field of the information record: text, "true" or "false", the elements of an array joined by
  // "|", or "empty".
  [[nodiscard]] Text Field(const Text& name);
  void SetPrivis(const std::vector<Right>& rights, bool is_super_admin);
  // `target` becomes an array of variants; returns when the dialog has been hidden or closed.
  void LoadInterface(std::int32_t index, const std::vector<Text>& target);
  void RemoteData(const Text& data);
  void HideInterface();

 private:
  com::LateBound plugin_;
};

}  // namespace quill::host

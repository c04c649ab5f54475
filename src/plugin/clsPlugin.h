// The class that the host calls. Any number of objects share the one module. Every member runs on
// the host's user-interface thread and may be called from within another one's modal display.
#pragma once

#include <cstdint>
#include <memory>

#include "plugin/mdlBHDGS.h"
#include "plugin/plugin_record.h"

namespace quill {

class clsPlugin {
 public:
  // Runs start-up when it has not run yet. `module` outlives the object.
  explicit clsPlugin(mdlBHDGS& module);

  // "1.1.2"; `PNAME` is not used.
  [[nodiscard]] Text dllVersion(TextView PNAME) const;
  [[nodiscard]] PLUGIN GetData() const;
  // Applies the operator's rights to the dialog. Either collection may be null. Trapped.
  void SetPrivis(std::shared_ptr<HostCollection> NameCol, std::shared_ptr<HostCollection> ValCol,
                 bool IsSuperAdmin);
  // Opens the dialog and asks the remote side for its settings; returns when the dialog has been
  // hidden or unloaded. `pHwnd` is not used. Trapped.
  void LoadInterface(std::int32_t Index, std::int32_t pHwnd, const HostArray& PDAT);
  // Hands in a reply that the host relays, which is copied first. Trapped.
  void RemoteData(TextView Data);
  // Hides the dialog. Not trapped: failures reach the host.
  void HideInterface();

 private:
  mdlBHDGS& module_;
};

}  // namespace quill

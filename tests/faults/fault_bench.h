// The whole plug-in on doubles whose calls fail by plan, and the job that must work at any time.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/watch/fault_plan.h"
#include "host/watch/plugin_invariants.h"
#include "tests/doubles/plug_in_bench.h"

namespace quill {

// Whose calls fail.
enum class Source : std::uint8_t { kFileKit, kFileSystem, kToolkit, kAllocator, kHost };

class FaultBench final : public PlugInBench {
 public:
  FaultBench();
  ~FaultBench() override;

  // Runs `use` with the calls of `source` failing by plan; tells the first call that failed, for
  // example "WriteIniKey txtName".
  struct Strike {
    int count = 0;
    Text first;
  };
  Strike RunFailing(Source source, int nth, host::FaultPlan::Extent extent, RuntimeError error,
                    const std::function<void()>& use);

  // As PlugInBench's, with a target whose use may fail.
  void Open(const std::function<void()>& use);
  // With the remote side's settings, the map page in front and three maps selected.
  void OpenFilled(const std::function<void()>& use);
  // What a native control tells, by the name of the control; nothing without a dialog.
  void Tell(TextView control, const ui::Fact& fact);
  void Press(TextView button, std::int16_t mouse = ui::kLeftButton);
  void SelectRows(TextView list, std::vector<int> rows);

  // Opens the dialog, fills it, selects maps, starts the game and takes the answer; what was not as
  // it must be, empty when all was.
  [[nodiscard]] std::string WholeJob();

  [[nodiscard]] frmrcBHDGS* dialog() { return module.dialog.get(); }
  // The labels in the boxes of trapped failures since the last call.
  [[nodiscard]] std::vector<Text> TakeReports();

  std::shared_ptr<HostCollection> rights;
  Text settings_reply;
  // What the boxes said since the last TakeReports that was no trapped failure.
  std::vector<Text> notices;
  bool all_told_as_sent = true;

 private:
  void Called(Source source, std::initializer_list<TextView> call);

  Source failing_source_ = Source::kFileKit;
  host::FaultPlan plan_;
  RuntimeError error_{ErrorNumber::kAutomationError};
  Text first_;
};

}  // namespace quill

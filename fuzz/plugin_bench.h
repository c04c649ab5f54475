// The plug-in in a host without a screen, as the heavier fuzzers drive it. Building the dialog
// costs more than an input does, so one plug-in takes all inputs, and each finds it as newly
// opened.
#pragma once

#include "fuzz/fuzz_target.h"
#include "host/watch/plugin_invariants.h"
#include "tests/doubles/plug_in_bench.h"

namespace quill::fuzz {

// Two mods, three maps of its own, fixed values.
[[nodiscard]] const host::Scenario& Machine();

class PluginBench final : public PlugInBench {
 public:
  // The one for all inputs. Each input resets it at its end, so that it leaves no memory behind:
  // the engine would take that for a leak and run the input once more.
  [[nodiscard]] static PluginBench& OfAll();
  // No files but the pictures, no faults, and a hidden dialog with its initial values.
  void Reset();

  // Opens the dialog, fills it by the machine's reply, runs `use` and hides it.
  void WhileFilled(const std::function<void()>& use);
  void SetRights(unsigned granted_bits);
  // The failures that the operator was told of since the last call; with every other message taken
  // away too.
  [[nodiscard]] int TakeFailures();
  // Tells what does not hold and ends the run, if anything.
  void CheckInvariants(const host::Expectations& expected = {}) const;

 private:
  PluginBench();
};

}  // namespace quill::fuzz

// A map-list file of any bytes: loading it does what the host's checker foretells.
#include "fuzz/plugin_bench.h"
#include "host/check/file_account.h"

namespace quill::fuzz {

void TakeInput(std::string_view input) {
  static const host::TrialConditions conditions = {Machine(), true, std::nullopt};
  PluginBench& bench = PluginBench::OfAll();
  bench.Write(u"given.mpl", input);
  bench.WhileFilled([&] {
    bench.person.ClickTab(u"Map Settings");
    bench.Push(u"cmdLoadMaps", u"given.mpl");
    const int failures = bench.TakeFailures();
    Claim(failures <= 1);
    bench.CheckInvariants({.rotation_is_shown = failures == 0});
    // The checker loads the file into a dialog of its own, which costs more than all the rest.
    if (input.size() % 64 != 0) return;
    const auto account = host::AccountOfMapList(input, conditions);
    Claim(account.maps == bench.module.maps.selected.maps());
  });
  bench.Reset();
}

}  // namespace quill::fuzz

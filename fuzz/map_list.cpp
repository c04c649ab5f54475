// A map-list file of any bytes: loading it does what the host's checker foretells.
#include "fuzz/plugin_bench.h"
#include "host/check/file_account.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quill;
  using namespace quill::fuzz;
  static const host::TrialConditions conditions = {Machine(), true, std::nullopt};
  PluginBench& bench = PluginBench::OfAll();
  bench.memory.SetContents(u"C:\\Host\\given.mpl", BytesOf(data, size));
  bench.WhileFilled([&] {
    bench.person.ClickTab(u"Map Settings");
    bench.Use(u"cmdLoadMaps", u"C:\\Host\\given.mpl");
    const int failures = bench.TakeFailures();
    Claim(failures <= 1);
    bench.CheckInvariants({.rotation_is_shown = failures == 0});
    // The checker loads the file into a dialog of its own, which costs more than all the rest.
    if (size % 32 != 0) return;
    const auto account = host::AccountOfMapList(BytesOf(data, size), conditions);
    Claim(account.maps == bench.module.maps.selected.maps());
  });
  bench.Reset();
  return 0;
}

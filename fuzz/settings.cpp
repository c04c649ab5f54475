// A settings file of any bytes: loading it does what the host's checker foretells, and what is
// saved afterwards loads and saves as the same.
#include <algorithm>

#include "fuzz/plugin_bench.h"
#include "host/check/file_account.h"

namespace quill::fuzz {
namespace {

constexpr TextView kGiven = u"C:\\Host\\given.hsf";
constexpr TextView kSaved = u"C:\\Host\\saved.hsf";
constexpr TextView kSavedAgain = u"C:\\Host\\again.hsf";

bool HasSurrogates(TextView text) {
  return std::ranges::any_of(text, [](char16_t unit) { return unit >= 0xD800 && unit < 0xE000; });
}

}  // namespace
}  // namespace quill::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quill;
  using namespace quill::fuzz;
  static const host::TrialConditions conditions = {Machine(), true, std::nullopt};
  PluginBench& bench = PluginBench::OfAll();
  bench.memory.SetContents(kGiven, BytesOf(data, size));
  bench.WhileFilled([&] {
    bench.Use(u"cmdLoad", kGiven);
    const int failures = bench.TakeFailures();
    bench.CheckInvariants({.rotation_is_shown = failures == 0, .available_maps_are_shown = false});
    const auto& rotation = bench.module.maps.selected;
    // The checker loads the file into a dialog of its own, which costs more than all the rest.
    if (size % 32 == 0) {
      const auto account = host::AccountOfSettings(BytesOf(data, size), conditions);
      Claim(failures != 0 || account.maps == rotation.maps());
    }
    // Saving writes the file anew for each key: a part of the inputs must do.
    if (failures != 0 || size % 16 != 0 || HasSurrogates(TextOf(data, size))) return;
    const auto maps = rotation.maps();
    bench.Use(u"cmdSave", kSaved);
    bench.Use(u"cmdLoad", kSaved);
    Claim(rotation.maps() == maps);
    bench.Use(u"cmdSave", kSavedAgain);
    Claim(bench.TakeFailures() == 0);
    Claim(bench.memory.Contents(kSaved) == bench.memory.Contents(kSavedAgain));
  });
  bench.Reset();
  return 0;
}

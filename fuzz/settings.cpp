// A settings file of any bytes: loading it does what the host's checker foretells, and what is
// saved afterwards loads and saves as the same.
#include <algorithm>

#include "fuzz/plugin_bench.h"
#include "host/check/file_account.h"

namespace quill::fuzz {
namespace {

constexpr TextView kGiven = u"given.hsf";
constexpr TextView kSaved = u"saved.hsf";
constexpr TextView kSavedAgain = u"again.hsf";

bool HasSurrogates(TextView text) {
  return std::ranges::any_of(text, [](char16_t unit) { return unit >= 0xD800 && unit < 0xE000; });
}

}  // namespace

void TakeInput(std::string_view input) {
  static const host::TrialConditions conditions = {Machine(), true, std::nullopt};
  PluginBench& bench = PluginBench::OfAll();
  bench.Write(kGiven, input);
  bench.WhileFilled([&] {
    bench.Push(u"cmdLoad", kGiven);
    const int failures = bench.TakeFailures();
    bench.CheckInvariants({.rotation_is_shown = failures == 0, .available_maps_are_shown = false});
    const auto& rotation = bench.module.maps.selected;
    // The checker loads the file into a dialog of its own, which costs more than all the rest.
    if (input.size() % 64 == 0) {
      const auto account = host::AccountOfSettings(input, conditions);
      Claim(failures != 0 || account.maps == rotation.maps());
    }
    // Saving writes the file anew for each key: a part of the inputs must do.
    if (failures != 0 || input.size() % 32 != 0 || HasSurrogates(TextOf(input))) return;
    const auto maps = rotation.maps();
    bench.Push(u"cmdSave", kSaved);
    bench.Push(u"cmdLoad", kSaved);
    Claim(rotation.maps() == maps);
    bench.Push(u"cmdSave", kSavedAgain);
    Claim(bench.TakeFailures() == 0);
    Claim(bench.Read(kSaved) == bench.Read(kSavedAgain));
  });
  bench.Reset();
}

}  // namespace quill::fuzz

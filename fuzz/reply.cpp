// A whole reply into the dialog, for an operator whose rights depend on the first byte. Whatever it
// is, the plug-in stays whole and takes the next good reply as if nothing had been.
#include "fuzz/plugin_bench.h"
#include "host/remote/scenario.h"
#include "host/remote/wire.h"

namespace quill::fuzz {

void TakeInput(std::string_view input) {
  static const Text good_reply = host::SettingsReply(Machine());
  const Text payload = TextOf(input);
  PluginBench& bench = PluginBench::OfAll();
  bench.SetRights(input.empty() ? 0U : static_cast<std::uint8_t>(input[0]));
  bench.module.PendingCommand = kLoadFormCommand;
  bench.plug_in().RemoteData(host::WriteFrame(payload));
  const int failures = bench.TakeFailures();
  // Selecting the mod may fail to list the maps, which is reported by itself, before a later field
  // fails.
  Claim(failures <= 2);
  const auto fields = Split(payload, u"_");
  Claim(failures >= 1 || fields.size() == 26 || fields.size() >= 33);
  if (failures == 0) {
    const auto items = Split(fields[25], u"|");
    const auto maps =
        std::count_if(items.begin(), items.end(), [](TextView item) { return !IsBlank(item); });
    Claim(std::ssize(bench.module.maps.server.maps()) == maps);
  }
  bench.CheckInvariants({.available_maps_are_shown = false});

  if (frmrcBHDGS* dialog = bench.module.dialog.get()) {
    dialog->Get<ui::ComboBox>(u"cboMods").Clear();
  }
  bench.plug_in().RemoteData(good_reply);
  Claim(bench.TakeFailures() == 0);
  bench.Reset();
}

}  // namespace quill::fuzz

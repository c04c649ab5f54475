// Building the game-settings reply from a scenario.
#include "host/remote/settings_reply.h"

#include <algorithm>
#include <vector>

#include "host/remote/wire.h"

namespace quill::host {
namespace {

Text ModsField(const Scenario& scenario) {
  Text mods;
  for (const Text& mod : scenario.mods) {
    if (&mod != &scenario.mods.front()) mods += kListSeparator;
    mods += mod;
  }
  return EncodeField(mods);
}

Text MapsField(const Scenario& scenario) {
  Text maps;
  for (const OwnMap& map : scenario.maps) {
    if (&map != &scenario.maps.front()) maps += kListSeparator;
    maps += EncodeField(Concat({map.name, u" <", map.file, u">", Decimal(map.game_type)}));
  }
  return maps;
}

}  // namespace

Text SettingsPayload(const Scenario& scenario) {
  std::vector<Text> fields(scenario.has_fixed_values ? kFieldCountWithFixed : kFieldCount);
  for (const auto settings : {CurrentSettings(), FixedSettings()}) {
    for (const Setting& setting : settings) {
      const auto field = static_cast<std::size_t>(setting.field);
      if (field >= fields.size()) continue;
      const Text& value = scenario.fields[field];
      fields[field] = setting.form == SettingForm::kText ? EncodeField(value) : value;
    }
  }
  fields[kModsField] = ModsField(scenario);
  fields[kMapsField] = MapsField(scenario);
  for (const auto& [field, text] : scenario.raw_fields) {
    fields.resize(std::max(fields.size(), static_cast<std::size_t>(field) + 1));
    fields[static_cast<std::size_t>(field)] = text;
  }

  Text payload;
  for (std::size_t field = 0; field < fields.size(); ++field) {
    if (field != 0) payload += kFieldSeparator;
    payload += fields[field];
  }
  return payload;
}

Text SettingsReply(const Scenario& scenario) {
  return WriteFrame(SettingsPayload(scenario));
}

}  // namespace quill::host

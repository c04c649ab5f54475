// Building the game-settings reply from a scenario.
#include "host/remote/settings_reply.h"

#include <algorithm>
#include <vector>

#include "host/kit/text_line.h"
#include "host/remote/wire.h"
#include "maps/map_entry.h"

namespace quill::host {
namespace {

Text MapsField(const Scenario& scenario) {
  std::vector<Text> maps;
  for (const SelectedMap& map : scenario.maps) {
    maps.push_back(EncodeField(JoinMapEntry(map.name, map.file) + Decimal(map.game_type)));
  }
  return Joined(maps, kListSeparator);
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
  fields[kModsField] = EncodeField(Joined(scenario.mods, kListSeparator));
  fields[kMapsField] = MapsField(scenario);
  for (const auto& [field, text] : scenario.raw_fields) {
    fields.resize(std::max(fields.size(), static_cast<std::size_t>(field) + 1));
    fields[static_cast<std::size_t>(field)] = text;
  }

  if (scenario.field_count) fields.resize(static_cast<std::size_t>(*scenario.field_count));
  return Joined(fields, kFieldSeparator);
}

Text SettingsReply(const Scenario& scenario) {
  return WriteFrame(SettingsPayload(scenario));
}

}  // namespace quill::host

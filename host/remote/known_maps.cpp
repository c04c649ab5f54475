// Look-up of maps by file name and game type.
#include "host/remote/known_maps.h"

#include "maps/map_catalogue.h"

namespace quill::host {

KnownMaps::KnownMaps() {
  for (const CatalogueRow& row : CatalogueRows()) {
    (row.team_sabre_only ? team_sabre_only_ : standard_)
        .insert({ToLower(row.file), row.game_type - u'0'});
  }
}

KnownMaps::KnownMaps(const Scenario& scenario) : KnownMaps() {
  knows_own_ = true;
  for (const SelectedMap& map : scenario.maps) own_.insert({ToLower(map.file), map.game_type});
}

Text KnownMaps::Doubt(const SelectedMap& map, TextView mod) const {
  const Key key{ToLower(map.file), map.game_type};
  if (map.server_map) {
    if (!knows_own_ || own_.contains(key)) return {};
    return Concat({u"the machine has no own map ", map.file, u" of that game type"});
  }
  if (standard_.contains(key)) return {};
  if (!team_sabre_only_.contains(key)) {
    return Concat({u"the game has no map ", map.file, u" of that game type"});
  }
  if (mod == u"None") return Concat({map.file, u" comes with Team Sabre only"});
  return {};
}

}  // namespace quill::host

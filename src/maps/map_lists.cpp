// The look-ups over catalogue and server maps.
#include "maps/map_lists.h"

#include <algorithm>

#include "support/number_text.h"

namespace quill {

void MapLists::ForEachOfGameType(std::int16_t game_type,
                                 const std::function<void(const KnownMap&)>& visit) const {
  for (const std::span<const KnownMap> maps : {std::span(catalogue), server.maps()}) {
    for (const KnownMap& map : maps) {
      if (ToInt16({&map.game_type, 1}) == game_type) visit(map);
    }
  }
}

Text MapLists::GetMapDisplayName(TextView file_name, TextView game_type,
                                 bool from_server_list) const {
  const TextView file = TrimBlanks(file_name);
  if (from_server_list) {
    const KnownMap* const map = server.Find(file, game_type);
    return map == nullptr ? Text() : Text(map->name);
  }
  const auto map = std::ranges::find_if(catalogue, [&](const KnownMap& each) {
    return each.file == file && TextView(&each.game_type, 1) == game_type;
  });
  return map == catalogue.end() ? Text() : Text(map->name);
}

}  // namespace quill

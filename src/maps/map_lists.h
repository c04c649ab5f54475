// The three model lists together, and what is asked of catalogue and server maps alike.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "maps/map_catalogue.h"
#include "maps/rotation_history.h"
#include "maps/selected_map_list.h"
#include "maps/server_map_list.h"

namespace quill {

struct MapLists {
  std::vector<KnownMap> catalogue;  // the one in use, empty until a mod has been selected
  ServerMapList server;
  SelectedMapList selected;
  RotationHistory history;  // of `selected`

  // Rows of the catalogue plus rows of the server map list, over all game types.
  [[nodiscard]] int TotalMapCount() const noexcept {
    return static_cast<int>(catalogue.size() + server.maps().size());
  }

  // Visits each row of that game type: the catalogue's in order, then the server's. Codes compare
  // as numbers: a server map whose code is no number fails with kTypeMismatch.
  void ForEachOfGameType(std::int16_t game_type,
                         const std::function<void(const KnownMap&)>& visit) const;

  // The display name, without blanks around it, of the first row whose file name equals `file_name`
  // without blanks around it and whose game-type code equals `game_type`; empty when there is none.
  // Exact comparisons of texts. Looks only in the server map list, or only in the catalogue.
  [[nodiscard]] Text GetMapDisplayName(TextView file_name, TextView game_type,
                                       bool from_server_list) const;
};

}  // namespace quill

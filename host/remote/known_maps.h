// Whether a remote machine has the maps of a start request.
#pragma once

#include <set>

#include "host/remote/scenario.h"
#include "host/remote/start_request.h"

namespace quill::host {

// The game's own maps and those of a scenario, which is not needed afterwards.
class KnownMaps {
 public:
  // The game's own maps only: a machine's own ones are then unknown to be or not to be there.
  KnownMaps();
  explicit KnownMaps(const Scenario& scenario);

  // What is doubtful about the map under that mod; empty when nothing is. File names compare in any
  // letter case.
  [[nodiscard]] Text Doubt(const SelectedMap& map, TextView mod) const;

 private:
  struct Key {
    Text file;  // lower case
    int game_type;
    auto operator<=>(const Key&) const = default;
  };

  std::set<Key> standard_;
  std::set<Key> team_sabre_only_;
  std::set<Key> own_;
  bool knows_own_ = false;
};

}  // namespace quill::host

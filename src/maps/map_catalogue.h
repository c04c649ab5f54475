// The built-in map catalogue: one table of all maps, from which the standard and the Team Sabre
// catalogue come; and the game types.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "support/text.h"

namespace quill {

// The nine game types; the index is the game-type code used throughout.
inline constexpr std::array<TextView, 9> kGameTypeNames = {
    u"Deathmatch",       u"Team Deathmatch",    u"Cooperative",       u"Team King of the Hill",
    u"King of the Hill", u"Search and Destroy", u"Attack and Defend", u"Capture the Flag",
    u"Flagball"};
inline constexpr int kNoGameType = 9;

// A map that can be selected: one of the game's, or one of the remote machine's own.
struct KnownMap {
  TextView name;                 // as shown to the operator
  TextView file;                 // as the game loads it
  char16_t game_type = 0;        // of the game's own maps u'0' to u'8'
  bool team_sabre_only = false;  // not part of the standard catalogue
};

// All 185 rows, in the order in which the lists show them.
[[nodiscard]] std::span<const KnownMap> CatalogueRows() noexcept;

inline constexpr std::uint8_t kStandardModFlag = 0;
inline constexpr std::uint8_t kTeamSabreModFlag = 1;
// 1 gives the Team Sabre catalogue, any other flag the standard one.
[[nodiscard]] std::vector<KnownMap> LoadMapCatalogue(std::uint8_t mod_flag);

}  // namespace quill

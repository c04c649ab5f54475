// The nine game types; the index is the game-type code used throughout.
#pragma once

#include <array>

#include "support/text.h"

namespace quill {

inline constexpr std::array<TextView, 9> kGameTypeNames = {
    u"Deathmatch",       u"Team Deathmatch",    u"Cooperative",       u"Team King of the Hill",
    u"King of the Hill", u"Search and Destroy", u"Attack and Defend", u"Capture the Flag",
    u"Flagball"};

inline constexpr int kNoGameType = 9;

}  // namespace quill

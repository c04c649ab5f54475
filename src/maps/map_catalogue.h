// The built-in map catalogue: one table of all maps, from which the standard and the Team Sabre
// catalogue come.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "support/text.h"

namespace quill {

struct CatalogueRow {
  TextView name;         // as shown to the operator
  TextView file;         // as the game loads it
  char16_t game_type;    // u'0' to u'8'
  bool team_sabre_only;  // not part of the standard catalogue
};

// All 185 rows in catalogue order.
[[nodiscard]] std::span<const CatalogueRow> CatalogueRows() noexcept;

inline constexpr std::uint8_t kStandardModFlag = 0;
inline constexpr std::uint8_t kTeamSabreModFlag = 1;

// The catalogue in use, empty until the first LoadMapCatalogue. Positions are 1-based, from 1 to
// Count(); others fail with kSubscriptOutOfRange.
class MapCatalogue {
 public:
  // 1 builds the Team Sabre catalogue, any other flag the standard one. On failure the former one
  // stays.
  void LoadMapCatalogue(std::uint8_t mod_flag);

  [[nodiscard]] int Count() const noexcept { return static_cast<int>(rows_.size()); }
  [[nodiscard]] TextView MapNames(int position) const { return At(position).name; }
  [[nodiscard]] TextView MapFiles(int position) const { return At(position).file; }
  // Decimal text, "0" to "8".
  [[nodiscard]] TextView MapGameTypes(int position) const { return {&At(position).game_type, 1}; }

 private:
  [[nodiscard]] const CatalogueRow& At(int position) const;

  std::vector<CatalogueRow> rows_;
};

}  // namespace quill

#include "maps/map_catalogue.h"

#include <utility>

#include "support/runtime_error.h"

namespace quill {

void MapCatalogue::LoadMapCatalogue(std::uint8_t mod_flag) {
  std::vector<CatalogueRow> rows;
  for (const CatalogueRow& row : CatalogueRows()) {
    if (mod_flag == kTeamSabreModFlag || !row.team_sabre_only) rows.push_back(row);
  }
  rows_ = std::move(rows);
}

const CatalogueRow& MapCatalogue::At(int position) const {
  if (position < 1 || position > Count()) throw RuntimeError(ErrorNumber::kSubscriptOutOfRange);
  return rows_[static_cast<std::size_t>(position) - 1];
}

}  // namespace quill

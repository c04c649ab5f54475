#include "maps/map_catalogue.h"

#include <utility>

#include "support/runtime_error.h"

namespace quill {
namespace {

template <class FieldOf>
std::vector<TextView> FieldOfRows(std::uint8_t mod_flag, const FieldOf& field_of) {
  std::vector<TextView> field;
  field.reserve(CatalogueRows().size());
  for (const CatalogueRow& row : CatalogueRows()) {
    if (mod_flag == kTeamSabreModFlag || !row.team_sabre_only) field.push_back(field_of(row));
  }
  return field;
}

TextView At(const std::vector<TextView>& field, int position) {
  if (position < 1 || static_cast<std::size_t>(position) > field.size()) {
    throw RuntimeError(ErrorNumber::kSubscriptOutOfRange);
  }
  return field[static_cast<std::size_t>(position) - 1];
}

}  // namespace

std::vector<TextView> LoadMapNames(std::uint8_t mod_flag) {
  return FieldOfRows(mod_flag, [](const CatalogueRow& row) { return row.name; });
}

std::vector<TextView> LoadMapFiles(std::uint8_t mod_flag) {
  return FieldOfRows(mod_flag, [](const CatalogueRow& row) { return row.file; });
}

std::vector<TextView> LoadMapGameTypes(std::uint8_t mod_flag) {
  return FieldOfRows(mod_flag, [](const CatalogueRow& row) { return TextView(&row.game_type, 1); });
}

void MapCatalogue::LoadMapCatalogue(std::uint8_t mod_flag) {
  std::vector<TextView> names = LoadMapNames(mod_flag);
  std::vector<TextView> files = LoadMapFiles(mod_flag);
  std::vector<TextView> game_types = LoadMapGameTypes(mod_flag);
  names_ = std::move(names);
  files_ = std::move(files);
  game_types_ = std::move(game_types);
}

TextView MapCatalogue::MapNames(int position) const {
  return At(names_, position);
}
TextView MapCatalogue::MapFiles(int position) const {
  return At(files_, position);
}
TextView MapCatalogue::MapGameTypes(int position) const {
  return At(game_types_, position);
}

}  // namespace quill

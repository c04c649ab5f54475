// Comparing a reference with the game's maps.
#include "host/check/missing_map.h"

#include "dialog/game_types.h"
#include "support/number_text.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

bool MeansServerMap(TextView flag) {
  try {
    return ToTruth(flag);
  } catch (const RuntimeError&) {
    return false;
  }
}

// Codes are compared as they are written, so that "00" finds no map of the game type 0.
bool AreOneNumber(TextView left, TextView right) {
  try {
    return ToInt32(left) == ToInt32(right);
  } catch (const RuntimeError&) {
    return false;
  }
}

Text WrittenOtherwise(TextView code) {
  return Concat({u"its game type is written ", code});
}

TextView TypeName(char16_t code) {
  return kGameTypeNames.at(static_cast<std::size_t>(code - u'0'));
}

}  // namespace

Text WhyMissing(const MapLists& maps, const TrialConditions& conditions, TextView code,
                TextView flag, TextView file) {
  const TextView name = TrimBlanks(file);
  if (MeansServerMap(flag)) {
    for (int position = 1; position <= maps.server.Count(); ++position) {
      const TextView own_code = maps.server.ServerMapGameTypes(position);
      if (maps.server.ServerMapFiles(position) == name && AreOneNumber(own_code, code)) {
        return WrittenOtherwise(own_code);
      }
    }
    if (conditions.knows_own_maps) return u"the machine has no such map of that game type";
    return u"it is one of a machine's own maps, which only a scenario tells";
  }
  const bool all = maps.catalogue.Count() == std::ssize(CatalogueRows());
  Text why = u"the game has no such map";
  for (const CatalogueRow& row : CatalogueRows()) {
    if (!EqualIgnoringCase(row.file, name)) continue;
    if (row.file != name) {
      why = Concat({u"its name is written ", row.file});
    } else if (const TextView own_code(&row.game_type, 1); own_code != code) {
      if (AreOneNumber(own_code, code)) return WrittenOtherwise(own_code);
      why = Concat(
          {u"it is a map of the game type ", own_code, u" (", TypeName(row.game_type), u")"});
    } else if (row.team_sabre_only && !all) {
      return u"it comes with Team Sabre only";
    }
  }
  return why;
}

}  // namespace quill::host

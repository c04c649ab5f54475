// "quillhost catalogue": the built-in maps as a table.
#include <cstdint>

#include "dialog/game_types.h"
#include "host/cli/commands.h"
#include "host/remote/scenario.h"
#include "maps/map_catalogue.h"

namespace quill::host {
namespace {

// True when only the standard catalogue is wanted.
bool WantsStandard(const Arguments& arguments) {
  const Text mod = arguments.Option(u"--mod").value_or(u"Team Sabre");
  if (EqualIgnoringCase(mod, u"none")) return true;
  if (EqualIgnoringCase(mod, u"Team Sabre")) return false;
  throw UsageError(Concat({u"--mod is none or \"Team Sabre\", not \"", mod, u"\""}));
}

}  // namespace

int RunCatalogueCommand(const Arguments& arguments, const CommandLineParts&, Console& console) {
  const bool standard_only = WantsStandard(arguments);
  std::optional<int> wanted;
  if (const auto type = arguments.Option(u"--type")) {
    wanted = FindGameType(*type);
    if (!wanted) throw UsageError(Concat({u"there is no game type \"", *type, u"\""}));
  }
  std::int64_t count = 0;
  for (const CatalogueRow& row : CatalogueRows()) {
    const int code = row.game_type - u'0';
    if ((standard_only && row.team_sabre_only) || (wanted && code != *wanted)) continue;
    ++count;
    console.Print(
        Concat({Decimal(code), u"  ", Padded(kGameTypeNames[static_cast<std::size_t>(code)], 21),
                u"  ", Padded(row.name, 24), u"  ", Padded(row.file, 13), u"  ",
                row.team_sabre_only ? u"Team Sabre only" : u"both", u"\n"}));
  }
  console.PrintLine(Concat({Decimal(count), count == 1 ? u" map" : u" maps"}));
  return kExitGood;
}

}  // namespace quill::host

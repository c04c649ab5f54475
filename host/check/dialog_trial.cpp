// Opening and filling the dialog, the operator's gestures, and the search for a missing map.
#include "host/check/dialog_trial.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "maps/map_catalogue.h"
#include "support/number_text.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

constexpr TextView kFile = u"C:\\Host\\checked";
constexpr TextView kModOption = u"cboMods";

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

void DialogTrial::WhileOpen(const std::function<void()>& use) {
  bool is_used = false;
  std::exception_ptr failure;
  host_.Open(conditions_.machine.index, HostTexts({u"", u"check"}), [&] {
    is_used = true;
    try {
      Fill();
      use();
    } catch (...) {
      failure = std::current_exception();
    }
  });
  if (failure) std::rethrow_exception(failure);
  if (!is_used) throw RuntimeError(ErrorNumber::kInternalError, u"the dialog has not opened");
}

void DialogTrial::Fill() {
  host_.plug_in().RemoteData(SettingsReply(conditions_.machine));
  if (!host_.watch.failures.empty()) {
    throw RuntimeError(ErrorNumber::kInvalidProcedureCall,
                       Concat({u"the dialog cannot be filled by the machine's reply: ",
                               host_.watch.failures.front().description}));
  }
  if (conditions_.mod) dialog().Get<ui::ComboBox>(kModOption).SetText(*conditions_.mod);
}

void DialogTrial::Push(TextView button) {
  host_.toolkit.AnswerNextFileDialog({Text(kFile)});
  host_.person.Press(button, 1);
  host_.person.Release(button, 1);
}

void DialogTrial::LoadSettings(std::string_view bytes,
                               const std::function<void(TextView entry)>& on_entry) {
  host_.memory.SetContents(kFile, bytes);
  host_.watch.before = [&](TextView operation, TextView entry) {
    if (operation == u"ParseIniKey") on_entry(entry);
    return true;
  };
  Push(u"cmdLoad");
  host_.watch.before = nullptr;
}

void DialogTrial::LoadMapList(std::string_view bytes) {
  host_.memory.SetContents(kFile, bytes);
  host_.person.ClickTab(u"Map Settings");
  Push(u"cmdLoadMaps");
}

std::unique_ptr<ByteReader> DialogTrial::Reader(std::string_view bytes) {
  host_.memory.SetContents(kFile, bytes);
  return host_.memory.OpenForReading(kFile);
}

bool DialogTrial::UsesTeamSabreMaps() const {
  return maps().catalogue.size() == CatalogueRows().size();
}

const LoggedFailure* DialogTrial::FailureOf(TextView label) const {
  const auto found = std::ranges::find(failures(), label, &LoggedFailure::label);
  return found == failures().end() ? nullptr : &*found;
}

Text DialogTrial::WhyMissing(TextView code, TextView flag, TextView file) const {
  const TextView name = TrimBlanks(file);
  if (MeansServerMap(flag)) {
    for (const KnownMap& map : maps().server.maps()) {
      const TextView own_code(&map.game_type, 1);
      if (map.file == name && AreOneNumber(own_code, code)) {
        return WrittenOtherwise(own_code);
      }
    }
    if (conditions_.knows_own_maps) return u"the machine has no such map of that game type";
    return u"it is one of a machine's own maps, which only a scenario tells";
  }
  Text why = u"the game has no such map";
  for (const KnownMap& row : CatalogueRows()) {
    if (!EqualIgnoringCase(row.file, name)) continue;
    if (row.file != name) {
      why = Concat({u"its name is written ", row.file});
    } else if (const TextView own_code(&row.game_type, 1); own_code != code) {
      if (AreOneNumber(own_code, code)) return WrittenOtherwise(own_code);
      why = Concat(
          {u"it is a map of the game type ", own_code, u" (", TypeName(row.game_type), u")"});
    } else if (row.team_sabre_only && !UsesTeamSabreMaps()) {
      return u"it comes with Team Sabre only";
    }
  }
  return why;
}

void DialogTrial::Conclude(FileAccount& account) {
  account.mod = dialog().Get<ui::ComboBox>(kModOption).text();
  account.with_team_sabre_maps = UsesTeamSabreMaps();
  if (account.maps.size() > std::size_t{kRotationLimit}) {
    account.Note(0, Concat({u"no map can be added before the rotation is shorter than ",
                            Decimal(kRotationLimit)}));
  }
}

}  // namespace quill::host

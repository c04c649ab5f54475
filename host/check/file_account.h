// What loading a settings file or a map list into the dialog does, told line by line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "host/remote/scenario.h"
#include "support/text.h"

namespace quill::host {

struct AccountLine {
  enum class Kind : std::uint8_t {
    kOptionSet,   // subject: the option; value: as a settings file has it; remark: as it shows
    kControlSet,  // the same for a control that is no option
    kMod,         // subject: the mod; value: the catalogue that is used from here on
    kMapFound,    // subject: its row in the rotation; value: game type and origin
    kMapMissing,  // subject: the file; value: why it is not found
    kLeftOut,     // subject: what; value: why
    kFailed,      // the same; loading ends here and the operator is told
    kNote,        // subject: of interest, changes nothing
  };
  Kind kind = Kind::kNote;
  std::size_t line = 0;  // from 1; 0: about the file as a whole
  Text subject;
  Text value;
  std::size_t count = 1;  // how many entries or lines of the file it stands for
  Text remark = {};
};

struct FileAccount {
  std::vector<AccountLine> lines;
  bool has_options = false;  // a settings file's
  Text mod;                  // chosen at the end
  bool with_team_sabre_maps = false;
  std::size_t options = 0;  // different ones that were set
  std::size_t maps = 0;     // in the rotation
  std::size_t left_out = 0;
};

// The catalogue in words.
[[nodiscard]] constexpr TextView CatalogueName(bool with_team_sabre_maps) {
  return with_team_sabre_maps ? u"Team Sabre" : u"standard";
}

// Where the file is loaded: into a dialog that this machine's reply has filled.
struct TrialConditions {
  Scenario machine;
  bool knows_own_maps = false;  // else look-ups among the machine's own maps say nothing about it
  std::optional<Text> mod;      // chosen before the file is loaded; none: as the reply chooses
};

// The mods None and Team Sabre, and no maps of its own.
[[nodiscard]] TrialConditions OrdinaryConditions();

// Both load the file with the plug-in itself and take linear time. Any bytes will do. They fail
// with a RuntimeError when the dialog does not take the machine's reply or has no such mod.
[[nodiscard]] FileAccount AccountOfSettings(std::string_view bytes,
                                            const TrialConditions& conditions);
[[nodiscard]] FileAccount AccountOfMapList(std::string_view bytes,
                                           const TrialConditions& conditions);

}  // namespace quill::host

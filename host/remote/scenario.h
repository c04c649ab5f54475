// A scenario: one file that a person can write, describing the remote machine that the reference
// host simulates and the operator for whom it opens the plug-in. docs/scenario-format.md is its
// manual; every section and key is optional.
//
//   [Profile]       Index, Target
//   [Operator]      Super Administrator, and the rights by their names
//   [Settings]      the current settings, by the names of CurrentSettings()
//   [Fixed Values]  the values for what the operator may not change, by the names of
//                   FixedSettings(); without this section the reply carries none
//   [Mods]          a mod a line
//   [Maps]          the machine's own maps, a line each: game type: Display Name <FILE.BMS>
//   [Raw Fields]    number = text: fields of the reply exactly so, right or wrong
//   [Start]         Action, Number, Delay, Command, Text: what a start request leads to
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/headless/host_objects.h"
#include "host/remote/setting_table.h"
#include "maps/selected_map_list.h"
#include "support/text.h"

namespace quill::host {

// What a start request leads to, once it has been found good.
enum class StartAction : std::uint8_t {
  kSucceed,  // answers with `number`
  kFail,     // answers 0
  kRun,      // runs `command`; answers `number` when it ends well, otherwise 0
  kNever,    // does not answer
  kRubbish,  // answers with `text`
};

struct StartBehaviour {
  StartAction action = StartAction::kSucceed;
  std::int32_t number = 1;
  std::chrono::milliseconds delay{0};
  Text command;
  Text text;
};

struct Scenario {
  Scenario();  // every setting at its initial value, no mods, no maps

  std::int32_t index = 1;
  Text target = u"server-1";
  bool super_administrator = false;
  std::vector<Right> rights;

  // By field number; texts before Base64. The fields of mods and maps stay empty here.
  std::array<Text, kFieldCountWithFixed> fields;
  bool has_fixed_values = false;
  std::vector<Text> mods;
  std::vector<SelectedMap> maps;
  std::map<int, Text> raw_fields;
  std::optional<int> field_count;  // the reply is cut, or filled up with empty fields, to so many
  StartBehaviour start;

  // What a person has written. Each fails with kInvalidProcedureCall and says what would be right.
  void Set(TextView setting, TextView value);
  void SetFixed(TextView setting, TextView value);  // from now on the reply has fixed values
  void SetRawField(std::int32_t field, TextView text);
  void AddMap(TextView game_type, TextView name, TextView file);
};

// The scenario in a file's bytes (see text_file.h for encodings). Fails with kInvalidProcedureCall
// and "line 12: what is wrong" for the first line that cannot be understood, a key or map given
// twice included.
[[nodiscard]] Scenario ParseScenario(std::string_view bytes);

// The reply to a game-settings query. Its fields: 26, or 33 with fixed values, or more where the
// scenario sets raw fields beyond.
[[nodiscard]] Text SettingsPayload(const Scenario& scenario);
// The same as it travels, in its compressed frame.
[[nodiscard]] Text SettingsReply(const Scenario& scenario);

// The code of a game type given by its name in any letter case or by its code; nothing otherwise.
[[nodiscard]] std::optional<int> FindGameType(TextView name_or_code);

}  // namespace quill::host

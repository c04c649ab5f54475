// What loading a settings file or a map list into the dialog does, told line by line. Nothing that
// comes from the file can break a line of it or play tricks on a terminal.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "host/remote/scenario.h"
#include "maps/selected_map_list.h"
#include "support/text.h"

namespace quill::host {

class FileAccount {
 public:
  struct Line {
    std::size_t number;  // of the file, from 1; 0: about the file as a whole
    Text text;
  };
  std::vector<Line> lines;
  std::optional<std::size_t> options;  // different ones that were set; nothing of a map list
  std::vector<SelectedMap> maps;       // in the rotation
  std::size_t left_out = 0;            // entries and lines
  Text mod;                            // chosen at the end
  bool with_team_sabre_maps = false;

  void Note(std::size_t line, Text text) { lines.push_back({line, std::move(text)}); }
  // The option or control shows `value` now, which stands for `meaning` unless that is empty.
  void Set(std::size_t line, TextView what, TextView value, TextView meaning);
  void Select(std::size_t line, const SelectedMap& map);
  // `how` begins the line: "LEFT OUT", "MISSING map", "FAILS at". `count` entries are lost.
  void Lose(std::size_t line, TextView how, TextView what, TextView why, std::size_t count = 1);

  // The last line, about everything.
  [[nodiscard]] Text Summary() const;
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

// Both load the file with the plug-in itself and take linear time. Any bytes will do. They fail
// with a RuntimeError when the dialog does not take the machine's reply or has no such mod.
[[nodiscard]] FileAccount AccountOfSettings(std::string_view bytes,
                                            const TrialConditions& conditions);
[[nodiscard]] FileAccount AccountOfMapList(std::string_view bytes,
                                           const TrialConditions& conditions);

}  // namespace quill::host

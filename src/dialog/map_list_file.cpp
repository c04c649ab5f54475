// How files name maps, and reading a map list into the rotation.
#include "dialog/map_list_file.h"

#include <memory>
#include <utility>

#include "dialog/frmrcBHDGS.h"
#include "dialog/profile_folders.h"
#include "dialog/text_lines.h"
#include "support/number_text.h"

namespace quill {
namespace {

constexpr TextView kSeparator = u"[-]";

// Adds the map of one line; a line that is no reference or names no known map is passed over.
void TakeLine(MapLists& maps, TextView line) {
  const std::vector<TextView> fields = FieldsOfMapLine(line);
  if (fields.empty()) return;
  std::optional<SelectedMap> map = FindStoredMap(maps, fields[0], fields[1], fields[2]);
  if (!map) return;
  // The look-up has taken any truth value; the record's flag is set by "1" alone.
  map->server_map = fields[1] == u"1";
  maps.selected.Append(std::move(*map));
}

}  // namespace

std::vector<TextView> SplitStoredMap(TextView text) {
  return Split(text, kSeparator);
}

Text StoredMapText(const SelectedMap& map) {
  const TextView flag = map.server_map ? u"1" : u"0";
  return Concat({Decimal(map.game_type), kSeparator, flag, kSeparator, map.file});
}

std::optional<SelectedMap> FindStoredMap(const MapLists& maps, TextView code, TextView flag,
                                         TextView file) {
  const bool server_map = ToTruth(flag);
  const TextView trimmed = TrimBlanks(file);
  Text name = maps.GetMapDisplayName(trimmed, code, server_map);
  if (name.empty()) return std::nullopt;
  return SelectedMap{std::move(name), Text(trimmed), ToInt32(code), server_map};
}

std::vector<TextView> FieldsOfMapLine(TextView line) {
  std::vector<TextView> fields;
  // A line of three fields has a separator behind its third character; most others are not split.
  if (line.find(kSeparator, 2) != TextView::npos) fields = SplitStoredMap(line);
  if (fields.size() != 3) fields.clear();
  return fields;
}

void LoadMapList(frmrcBHDGS& dialog) {
  Session& session = dialog.session();
  Text file;
  Trapped(
      session.reporter, u"cmdLoadMaps",
      [&](Line& at) {
        at(), MakeSettingsFolders(session);
        at(),
            file = AskForFileToOpen(dialog, u"Load saved map list", u"Maplist files (*.mpl)|*.mpl");
        // The host has closed the dialog meanwhile: nothing is done for it any more.
        if (file.empty() || dialog.unloaded()) return;

        at(), dialog.SetEnabled(false);
        at(), dialog.pointer = ui::Pointer::kBusy;
        at(), session.maps.selected.Clear();
        std::optional<TextLines> lines;
        at(), lines.emplace(session.files.OpenForReading(file), session.code_page);
        Text line;
        for (;;) {
          bool more = false;
          at(), more = lines->Next(line);
          if (!more) break;
          at(), TakeLine(session.maps, line);
        }
        // Closes the file.
        at(), lines.reset();
        // A copy: the lines of ShowRotation are another file's, and the report tells one of this
        // file.
        Line step = at;
        at(), dialog.ShowRotation(step);
        at(), dialog.SetEnabled(true);
        at(), dialog.pointer = ui::Pointer::kDefault;
      },
      [&](RuntimeError& error) {
        RunEach([&] { dialog.SetEnabled(true); }, [&] { dialog.pointer = ui::Pointer::kDefault; },
                [&] { dialog.lstSelMaps.SetVisible(true); });
        // Its usual wording does not name the file, which the operator may have typed.
        if (error.Is(ErrorNumber::kFileNotFound)) {
          error.AppendToDescription(Concat({u" [", file, u"]"}));
        }
      });
}

}  // namespace quill

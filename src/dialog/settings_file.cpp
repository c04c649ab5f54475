// Saving and loading host settings, step by step.
#include "dialog/settings_file.h"

#include <optional>
#include <utility>

#include "dialog/frmrcBHDGS.h"
#include "dialog/option_table.h"
#include "dialog/option_value.h"
#include "dialog/previous_settings.h"
#include "dialog/profile_folders.h"
#include "dialog/stored_map.h"
#include "support/trap.h"

namespace quill {
namespace {

constexpr TextView kFilter = u"Host Settings File (*.hsf)|*.hsf";
constexpr TextView kDefaultTitle = u"kvrrcBHDGS";
constexpr int kNoMap = -1;

// An empty text is replaced in the dialog first.
void WriteOption(frmrcBHDGS& dialog, const Option& option, TextView file) {
  ui::Control& control = dialog.At(option.key);
  if (!option.blank_replacement.empty() && TextValue(control).empty()) {
    SetPrintedValue(control, option.blank_replacement);
  }
  dialog.session().kit().WriteIniKey(kSettingsSection, option.key, PrintedValue(control), file);
}

// Where a file goes that is set aside. What was set aside before is never replaced: it may be the
// last whole version, and `file` what a save left that broke off.
Text FreeBackupName(FileSystem& files, TextView file) {
  Text name = Concat({file, u".bak"});
  for (int n = 2; files.FileExists(name); ++n) name = Concat({file, u".bak", Decimal(n)});
  return name;
}

struct Notice {
  MessageKind kind;
  TextView text;
};

Notice ResultOf(FileSystem& files, TextView file) {
  if (!files.FileExists(file)) return {MessageKind::kFailed, u"Failed to Save Host Settings!."};
  if (files.FileSize(file) == 0) {
    return {MessageKind::kFailed, u"Failed to Write Data to Host Settings File!."};
  }
  return {MessageKind::kSuccess, u"Host Settings Saved Successfully."};
}

// Adds the map to the rotation, or its file name to the missing ones.
void TakeMap(MapLists& maps, TextView value, Text& missing) {
  const std::vector<TextView> fields = SplitStoredMap(value);
  if (fields.size() < 3) throw RuntimeError(ErrorNumber::kSubscriptOutOfRange);
  const TextView file = TrimBlanks(fields[fields.size() == 4 ? 3 : 2]);
  if (auto map = FindStoredMap(maps, fields[0], fields[1], file)) {
    maps.selected.Append(std::move(*map));
  } else {
    missing += file;
    missing += kLineBreak;
  }
}

}  // namespace

void SaveSettings(frmrcBHDGS& dialog) {
  Session& session = dialog.session();
  int map_being_read = kNoMap;
  Text file;
  Text set_aside;  // the name that the former file has now, if it made way
  bool begun = false;
  const auto bring_back = [&] {
    if (!set_aside.empty()) session.files.RenameFile(set_aside, file);
  };
  Trapped(
      session.reporter, u"cmdSave",
      [&](Line& at) {
        at(), MakeSettingsFolders(session);
        at(), file = AskForFileToSave(dialog, u"Save Host Settings", kFilter);
        if (file.empty() || dialog.unloaded()) return;

        const int map_count = dialog.lstSelMaps.Count();
        bool outlives = false;
        at(), outlives =
                  session.files.FileExists(file) && WouldOutliveSaving(dialog, file, map_count);
        if (outlives) {
          Text name;
          at(), name = FreeBackupName(session.files, file);
          at(), session.files.RenameFile(file, name);
          set_aside = std::move(name);
        }
        for (const Option& option : Options()) {
          at(), WriteOption(dialog, option, file);
          begun = true;
        }
        for (int n = 0; n < map_count; ++n) {
          Text value;
          map_being_read = n;
          at(), value = StoredMapText(session.maps.selected.At(n + 1));
          map_being_read = kNoMap;
          at(), session.kit().WriteIniKey(kSettingsSection, Concat({kMapKey, Decimal(n)}), value,
                                          file);
        }
        Notice result{};
        at(), result = ResultOf(session.files, file);
        if (result.kind == MessageKind::kFailed) at(), bring_back();
        at(), session.reporter.Show(result.kind, result.text);
      },
      [&](RuntimeError& error) {
        if (!begun || ResultOf(session.files, file).kind == MessageKind::kFailed) bring_back();
        if (map_being_read == kNoMap || !error.Is(ErrorNumber::kInvalidProcedureCall)) return;
        error.AppendToDescription(Concat({u" [", Decimal(map_being_read), u"]"}));
      });
}

void LoadSettings(frmrcBHDGS& dialog) {
  Session& session = dialog.session();
  Trapped(
      session.reporter, u"cmdLoad",
      [&](Line& at) {
        Text file;
        at(), MakeSettingsFolders(session);
        at(), file = AskForFileToOpen(dialog, u"Load Saved Host Settings", kFilter);
        // The host has closed the dialog meanwhile: nothing is done for it any more.
        if (file.empty() || dialog.unloaded()) return;

        at(), dialog.pointer = ui::Pointer::kBusy;
        at(), session.maps.selected.Clear();
        Text missing;
        std::optional<IniElements> section;
        at(), section = session.kit().GetIniSection(kSettingsSection, file);
        // The last element is no entry, and fewer than two entries are no settings.
        const std::size_t count = section && section->count >= 3 ? section->count - 1 : 0;
        for (std::size_t i = 0; i < count; ++i) {
          Text entry;
          at(), entry = section->element(i);
          IniEntry parsed;
          at(), parsed = session.kit().ParseIniKey(entry);
          ui::Control* const control = (at(), dialog.Find(ControlNameOf(parsed.key)));
          if (control != nullptr) at(), SetPrintedValue(*control, parsed.value);
          if (!entry.starts_with(kMapKey)) continue;
          Text value;
          at(), value = session.kit().ParseIniValue(entry);
          at(), TakeMap(session.maps, value, missing);
        }
        at(), dialog.BuildMapList();
        at(), dialog.pointer = ui::Pointer::kDefault;
        if (missing.empty()) return;
        at(), session.toolkit.ShowMessage(
                  kDefaultTitle, Concat({u"The following map files do not appear to exist: ",
                                         kLineBreak, kLineBreak, missing}));
      },
      [&](RuntimeError&) { dialog.pointer = ui::Pointer::kDefault; });
}

}  // namespace quill

// Saving and loading host settings, step by step. Saving writes key by key and removes nothing, so
// that a later load could read back more than was saved: such a file is set aside first.
#include "dialog/settings_file.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "dialog/frmrcBHDGS.h"
#include "dialog/map_list_file.h"
#include "dialog/option_control.h"
#include "dialog/profile_folders.h"
#include "support/number_text.h"

namespace quill {
namespace {

constexpr TextView kFilter = u"Host Settings File (*.hsf)|*.hsf";
constexpr TextView kDefaultTitle = u"kvrrcBHDGS";
constexpr int kNoMap = -1;

Text MapKey(std::int32_t number) {
  return Concat({kMapKey, Decimal(number)});
}

// Follows the entries in file order: which of them the keys to be written replace.
class ReplacedEntries {
 public:
  ReplacedEntries(const frmrcBHDGS& dialog, int map_count)
      : dialog_(dialog), map_count_(map_count), options_(Options().size()) {}

  // True when the next entry is replaced in its place, or changes nothing that was saved.
  bool Take(TextView entry, TextView key) {
    if (entry.starts_with(kMapKey)) return TakeMap(key);
    return !IsWrittenInOtherLetters(key) && TakeControl(key);
  }

 private:
  // Missing maps are added at the end, so those there must be the first ones in their order; and
  // the mod that they are looked up with must come before them.
  bool TakeMap(TextView key) { return mod_seen_ && maps_ < map_count_ && key == MapKey(maps_++); }

  // A kit may write a map in the place of such a key, which is then not where maps belong, or keep
  // its letters, in which a load finds no map.
  [[nodiscard]] bool IsWrittenInOtherLetters(TextView key) const {
    constexpr std::size_t kMostDigits = 9;
    const TextView digits = key.substr(std::min(kMapKey.size(), key.size()));
    if (digits.empty() || digits.size() > kMostDigits ||
        digits.find_first_not_of(u"0123456789") != TextView::npos) {
      return false;
    }
    const std::int32_t number = ToInt32(digits);
    return number < map_count_ && EqualIgnoringCase(key, MapKey(number));
  }

  bool TakeControl(TextView key) {
    const ui::Control* control = dialog_.Find(ControlNameOf(key));
    if (control == nullptr) return true;
    const auto options = Options();
    const auto option = std::find_if(options.begin(), options.end(), [&](const Option& each) {
      return each.key == control->name();
    });
    // A list that is no option may refuse its value, which ends a load.
    if (option == options.end()) return !HasNumberValue(*control);
    if (option->key == u"cboMods") mod_seen_ = true;
    auto seen = options_.begin() + (option - options.begin());
    const bool is_first = !*seen;
    *seen = true;
    return is_first && EqualIgnoringCase(option->key, key);
  }

  const frmrcBHDGS& dialog_;
  int map_count_;
  int maps_ = 0;
  bool mod_seen_ = false;
  std::vector<bool> options_;  // those seen, by their row in the table
};

// True when loading `file` after the options and `map_count` maps have been written into it might
// give other options or maps: it holds further maps, maps in another order or before the mod, or
// something for an option or a list that none of the written keys replaces. Fails where the kit
// cannot read the file.
bool WouldOutliveSaving(const frmrcBHDGS& dialog, TextView file, int map_count) {
  FileKit& kit = dialog.session().kit();
  const std::optional<IniElements> section = kit.GetIniSection(kSettingsSection, file);
  if (!section) return false;
  ReplacedEntries replaced(dialog, map_count);
  for (std::size_t i = 0; i + 1 < section->count; ++i) {
    const Text entry = section->element(i);
    if (!replaced.Take(entry, kit.ParseIniKey(entry).key)) return true;
  }
  return false;
}

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
  // Of four fields the third is not used.
  const TextView file = TrimBlanks(fields[fields.size() == 4 ? 3 : 2]);
  if (auto map = FindStoredMap(maps, fields[0], fields[1], file)) {
    maps.selected.Append(std::move(*map));
  } else {
    missing += file;
    missing += kLineBreak;
  }
}

}  // namespace

TextView ControlNameOf(TextView key) {
  return key.substr(0, key.find(u'.'));
}

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

        // What the operator sees is saved: as many maps as the list has rows.
        const int map_count = dialog.lstSelMaps.Count();
        const bool exists = (at(), session.files.FileExists(file));
        bool outlives = exists;  // also what the kit cannot read
        RunEach([&] { outlives = exists && WouldOutliveSaving(dialog, file, map_count); });
        if (outlives) {
          // In a variable of its own first: set_aside tells that the renaming was done.
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
          // For the report, which names the map that the rotation does not have.
          map_being_read = n;
          at(), value = StoredMapText(session.maps.selected.At(n + 1));
          map_being_read = kNoMap;
          at(), session.kit().WriteIniKey(kSettingsSection, MapKey(n), value, file);
        }
        Notice result{};
        at(), result = ResultOf(session.files, file);
        // A kit may fail to write without saying so.
        if (result.kind == MessageKind::kFailed) at(), bring_back();
        at(), session.reporter.Show(result.kind, result.text);
      },
      [&](RuntimeError& error) {
        // Nothing worth keeping has been written in its place.
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
          // Any control with a value may be named, not only an option. The value of cboMods
          // rebuilds the catalogue at once, and the maps that follow are looked up in that one.
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
        // Not by the reporter: the box has the title of one that is given none, and is no report.
        at(), session.toolkit.ShowMessage(
                  kDefaultTitle, Concat({u"The following map files do not appear to exist: ",
                                         kLineBreak, kLineBreak, missing}));
      },
      [&](RuntimeError&) { dialog.pointer = ui::Pointer::kDefault; });
}

}  // namespace quill

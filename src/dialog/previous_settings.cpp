// Telling what of a settings file a save would leave in force.
#include "dialog/previous_settings.h"

#include <optional>
#include <vector>

#include "dialog/frmrcBHDGS.h"
#include "dialog/option_table.h"

namespace quill {
namespace {

// Follows the entries in file order: which of them the keys to be written replace.
class ReplacedEntries {
 public:
  ReplacedEntries(const frmrcBHDGS& dialog, int map_count)
      : dialog_(dialog), map_count_(map_count), options_(Options().size()) {}

  // True when the next entry is replaced in its place, or means nothing to a load.
  bool Take(TextView entry, TextView key) {
    if (entry.starts_with(kMapKey)) return TakeMap(key);
    return !IsMapInOtherLetters(key) && TakeControl(key);
  }

 private:
  // Missing maps are added at the end, so those there must be the first ones in their order; and
  // the mod that they are looked up with must come before them.
  bool TakeMap(TextView key) {
    if (!mod_seen_ || maps_ == map_count_) return false;
    return key == Concat({kMapKey, Decimal(maps_++)});
  }

  // It means nothing to a load, but a map may be written in its place, which is then not where maps
  // belong, or in its letters.
  static bool IsMapInOtherLetters(TextView key) {
    constexpr TextView kDigits = u"0123456789";
    return key.size() > kMapKey.size() &&
           EqualIgnoringCase(key.substr(0, kMapKey.size()), kMapKey) &&
           key.find_first_not_of(kDigits, kMapKey.size()) == TextView::npos;
  }

  bool TakeControl(TextView key) {
    const ui::Control* control = dialog_.Find(ControlNameOf(key));
    if (control == nullptr) return true;
    for (std::size_t i = 0; i < options_.size(); ++i) {
      if (!EqualIgnoringCase(Options()[i].key, key)) continue;
      if (Options()[i].kind == ui::ControlKind::kComboBox) mod_seen_ = true;
      const bool first = !options_[i];
      options_[i] = true;
      return first;
    }
    return false;
  }

  const frmrcBHDGS& dialog_;
  int map_count_;
  int maps_ = 0;
  bool mod_seen_ = false;
  std::vector<bool> options_;  // those seen, by their row in the table
};

}  // namespace

Text PreviousVersionName(TextView file) {
  return Concat({file, u".bak"});
}

TextView ControlNameOf(TextView key) {
  return key.substr(0, key.find(u'.'));
}

bool WouldOutliveSaving(const frmrcBHDGS& dialog, TextView file, int map_count) {
  FileKit& kit = *dialog.context().file_kit;
  const std::optional<std::vector<Text>> entries = kit.GetIniSection(kSettingsSection, file);
  if (!entries) return false;
  ReplacedEntries replaced(dialog, map_count);
  for (std::size_t i = 0; i + 1 < entries->size(); ++i) {
    const Text& entry = (*entries)[i];
    try {
      if (!replaced.Take(entry, kit.ParseIniKey(entry).key)) return true;
    } catch (const RuntimeError&) {
      return true;
    }
  }
  return false;
}

}  // namespace quill

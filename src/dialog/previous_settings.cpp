// Telling what of a settings file a save would leave in force.
#include "dialog/previous_settings.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "dialog/frmrcBHDGS.h"
#include "dialog/option_value.h"
#include "support/number_text.h"

namespace quill {
namespace {

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

}  // namespace

TextView ControlNameOf(TextView key) {
  return key.substr(0, key.find(u'.'));
}

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

}  // namespace quill

// Watching the dialog while it takes the entries of a settings file one by one.
#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "dialog/option_table.h"
#include "dialog/previous_settings.h"
#include "dialog/stored_map.h"
#include "host/check/dialog_trial.h"
#include "host/check/missing_map.h"
#include "host/kit/ini_text.h"
#include "host/kit/text_file.h"
#include "maps/map_entry.h"

namespace quill::host {
namespace {

using Kind = AccountLine::Kind;

constexpr TextView kSettingsTrap = u"cmdLoad";
constexpr std::int32_t kGreyed = 2;
constexpr std::array<TextView, 2> kStates = {u"off", u"on"};

const Option* FindOption(const ui::Control& control) {
  for (const Option& option : Options()) {
    if (option.key == control.name()) return &option;
  }
  return nullptr;
}

// What a start makes of a check box. A flag is added at one state only; of the others each is sent
// as it stands, but for that of looping, which is switched on first.
TextView StateName(const Option& option, std::int32_t state) {
  if (state != kGreyed) return kStates.at(static_cast<std::size_t>(state));
  if (option.flag.bit != 0 ? option.flag.added_at == 0 : option.key == u"chkLoop") {
    return u"greyed, counts as on";
  }
  return option.flag.bit != 0 ? u"greyed, counts as off" : u"greyed, sent as 2";
}

// What an entry did is seen when the next one is taken or loading has ended.
class SettingsWatch {
 public:
  SettingsWatch(DialogTrial& trial, const TrialConditions& conditions, const IniOutline& outline,
                FileAccount& account)
      : trial_(trial), conditions_(conditions), outline_(outline), account_(account) {}

  void Taken() {
    if (is_one_taken_) Tell(Current());
    at_ = is_one_taken_ ? at_ + 1 : 0;
    is_one_taken_ = true;
    SkipOutsiders();
    maps_before_ = trial_.maps().selected.Count();
  }

  void Ended() {
    const host::LoggedFailure* failure = trial_.FailureOf(kSettingsTrap);
    if (is_one_taken_) {
      if (failure != nullptr) {
        TellFailure(Current(), *failure);
      } else {
        Tell(Current());
      }
      ++at_;
    } else if (failure != nullptr) {
      Add({Kind::kFailed, 0, u"the file", Described(*failure)});
    }
    TellNotTaken(failure != nullptr);
    if (!outline_.has_section) {
      Add({Kind::kLeftOut, 0, u"everything",
           Concat({u"there is no section [", kSettingsSection, u"]"})});
    }
    for (const host::LoggedFailure& other : trial_.failures()) {
      if (&other == failure) continue;
      Add({Kind::kLeftOut, 0, other.label, Described(other)});
    }
    TellNotMentioned();
    account_.options = set_at_.size();
  }

 private:
  [[nodiscard]] const IniOutline::Entry& Current() const { return outline_.entries.at(at_); }

  static Text Described(const host::LoggedFailure& failure) {
    return Concat({failure.description, u" (error ", Decimal(failure.number), u")"});
  }

  void Add(AccountLine line) { account_.lines.push_back(std::move(line)); }

  void TellOutsider(const IniOutline::Entry& entry) {
    Add({Kind::kLeftOut, entry.line, entry.text,
         Concat({u"it is not in the section [", kSettingsSection, u"]"})});
  }

  void SkipOutsiders() {
    for (; at_ < outline_.entries.size() && !Current().in_section; ++at_) TellOutsider(Current());
  }

  void Tell(const IniOutline::Entry& entry) {
    const IniEntry parsed = SplitIniEntry(entry.text);
    ui::Control* const control = trial_.dialog().Find(ControlNameOf(parsed.key));
    const bool is_map = entry.text.starts_with(kMapKey);
    if (control != nullptr) {
      TellControl(entry, *control, parsed.value);
    } else if (!is_map) {
      Add({Kind::kLeftOut, entry.line, entry.text, u"there is no option of that name"});
    }
    if (is_map) TellMap(entry, parsed.value);
  }

  void TellControl(const IniOutline::Entry& entry, ui::Control& control, const Text& value) {
    Text shown;
    Text remark;
    bool is_mod = false;
    if (auto* text_box = dynamic_cast<ui::TextBox*>(&control)) {
      shown = text_box->text();
    } else if (auto* combo_box = dynamic_cast<ui::ComboBox*>(&control)) {
      shown = combo_box->text();
      is_mod = true;
      if (shown != value) {
        Add({Kind::kLeftOut, entry.line, entry.text,
             Concat({u"the list has no such item, \"", shown, u"\" stays"})});
        return;
      }
    } else if (auto* check_box = dynamic_cast<ui::CheckBox*>(&control)) {
      shown = Decimal(check_box->value());
      remark = StateName(*FindOption(control), check_box->value());
    } else if (auto* list_box = dynamic_cast<ui::ListBox*>(&control)) {
      shown = Decimal(list_box->ListIndex());
      remark = list_box->ListIndex() < 0 ? TextView(u"none chosen")
                                         : list_box->Item(list_box->ListIndex());
    } else {
      Add({Kind::kLeftOut, entry.line, entry.text,
           Concat({u"a ", ui::KindName(control.kind()), u" takes no value"})});
      return;
    }
    const Option* const option = FindOption(control);
    Add({option != nullptr ? Kind::kOptionSet : Kind::kControlSet, entry.line, control.name(),
         shown, 1, std::move(remark)});
    if (option == nullptr) return;
    const auto [earlier, is_first] = set_at_.try_emplace(option, entry.line);
    if (!is_first) {
      Add({Kind::kNote, entry.line,
           Concat({control.name(), u" was set in line ", Decimal(std::int64_t(earlier->second)),
                   u" already"}),
           u""});
    }
    if (option->max_length > 0 && std::ssize(shown) > option->max_length) {
      Add({Kind::kNote, entry.line,
           Concat({u"this is longer than the ", Decimal(option->max_length),
                   u" characters that can be typed"}),
           u""});
    }
    if (!is_mod) return;
    Add({Kind::kMod, entry.line, shown, Text(CatalogueName(trial_.UsesTeamSabreMaps()))});
  }

  void TellMap(const IniOutline::Entry& entry, TextView value) {
    const SelectedMapList& selected = trial_.maps().selected;
    if (selected.Count() > maps_before_) {
      const SelectedMap& map = selected.At(selected.Count());
      Add({Kind::kMapFound, entry.line, JoinMapEntry(map.name, map.file), MapOrigin(map)});
      return;
    }
    const StoredMapFields fields = SplitStoredMap(value);
    const TextView file = fields.first[fields.count == 4 ? 3 : 2];
    Add({Kind::kMapMissing, entry.line, Text(TrimBlanks(file)),
         WhyMissing(trial_.maps(), conditions_, fields.first[0], fields.first[1], file)});
  }

  void TellFailure(const IniOutline::Entry& entry, const host::LoggedFailure& failure) {
    Add({Kind::kFailed, entry.line, entry.text, Described(failure)});
  }

  // The entries from here on.
  void TellNotTaken(bool has_failed) {
    const auto begin = outline_.entries.begin() + static_cast<std::ptrdiff_t>(at_);
    auto rest = static_cast<std::size_t>(
        std::count_if(begin, outline_.entries.end(),
                      [](const IniOutline::Entry& entry) { return entry.in_section; }));
    for (auto entry = begin; entry != outline_.entries.end(); ++entry) {
      if (!entry->in_section) {
        TellOutsider(*entry);
      } else if (rest != 0) {
        Add({Kind::kLeftOut, entry->line, rest == 1 ? entry->text : Text(u"what follows"),
             has_failed ? u"loading has ended before" : u"a single entry is not read",
             std::exchange(rest, 0)});
      }
    }
  }

  void TellNotMentioned() {
    Text names;
    for (const Option& option : Options()) {
      if (set_at_.contains(&option)) continue;
      names += Concat({names.empty() ? u"" : u", ", option.key});
    }
    if (!names.empty()) Add({Kind::kNote, 0, u"these options stay as they are: " + names, u""});
  }

  DialogTrial& trial_;
  const TrialConditions& conditions_;
  const IniOutline& outline_;
  FileAccount& account_;
  std::size_t at_ = 0;  // the entry that is being taken, or the next one
  bool is_one_taken_ = false;
  int maps_before_ = 0;
  std::map<const Option*, std::size_t> set_at_;
};

}  // namespace

FileAccount AccountOfSettings(std::string_view bytes, const TrialConditions& conditions) {
  FileAccount account;
  account.has_options = true;
  const IniOutline outline = OutlineIni(DecodeTextFile(bytes).text, kSettingsSection);
  DialogTrial trial(conditions);
  trial.WhileOpen([&] {
    SettingsWatch watch(trial, conditions, outline, account);
    trial.LoadSettings(bytes, [&](TextView) { watch.Taken(); });
    watch.Ended();
    Conclude(trial, account);
  });
  return account;
}

}  // namespace quill::host

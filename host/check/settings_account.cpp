// Watching the dialog while it takes the entries of a settings file one by one.
#include <algorithm>
#include <array>
#include <map>
#include <span>
#include <utility>

#include "dialog/map_list_file.h"
#include "dialog/option_control.h"
#include "dialog/settings_file.h"
#include "host/check/dialog_trial.h"
#include "host/kit/ini_text.h"
#include "host/kit/text_file.h"
#include "host/kit/text_line.h"

namespace quill::host {
namespace {

constexpr TextView kSettingsTrap = u"cmdLoad";
constexpr std::int32_t kGreyed = 2;
constexpr std::array<TextView, 2> kStates = {u"off", u"on"};

const Option* FindOption(const ui::Control& control) {
  const auto found = std::ranges::find(Options(), control.name(), &Option::key);
  return found == Options().end() ? nullptr : &*found;
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

Text Described(const LoggedFailure& failure) {
  return Concat({failure.description, u" (error ", Decimal(failure.number), u")"});
}

// What an entry did is seen when the next one is taken or loading has ended.
class SettingsWatch {
 public:
  SettingsWatch(DialogTrial& trial, const IniOutline& outline, FileAccount& account)
      : trial_(trial), outline_(outline), account_(account) {}

  void Taken() {
    if (is_one_taken_) Tell(outline_.entries.at(at_++));
    is_one_taken_ = true;
    while (at_ < outline_.entries.size() && !outline_.entries[at_].in_section) {
      TellOutsider(outline_.entries[at_++]);
    }
    maps_before_ = trial_.maps().selected.Count();
  }

  void Ended() {
    const LoggedFailure* failure = trial_.FailureOf(kSettingsTrap);
    if (is_one_taken_) {
      const IniOutline::Entry& entry = outline_.entries.at(at_++);
      if (failure != nullptr) {
        account_.Lose(entry.line, u"FAILS at", entry.text, Described(*failure));
      } else {
        Tell(entry);
      }
    } else if (failure != nullptr) {
      account_.Lose(0, u"FAILS at", u"the file", Described(*failure));
    }
    TellNotTaken(failure != nullptr);
    if (!outline_.has_section) {
      LeaveOut(0, u"everything", Concat({u"there is no section [", kSettingsSection, u"]"}));
    }
    for (const LoggedFailure& other : trial_.failures()) {
      if (&other != failure) LeaveOut(0, other.label, Described(other));
    }
    TellNotMentioned();
    account_.options = set_at_.size();
  }

 private:
  void LeaveOut(std::size_t line, TextView what, TextView why) {
    account_.Lose(line, u"LEFT OUT", what, why);
  }

  void TellOutsider(const IniOutline::Entry& entry) {
    LeaveOut(entry.line, entry.text,
             Concat({u"it is not in the section [", kSettingsSection, u"]"}));
  }

  void Tell(const IniOutline::Entry& entry) {
    const IniEntry parsed = SplitIniEntry(entry.text);
    ui::Control* const control = trial_.dialog().Find(ControlNameOf(parsed.key));
    const bool is_map = entry.text.starts_with(kMapKey);
    if (control != nullptr) {
      TellControl(entry, *control, parsed.value);
    } else if (!is_map) {
      LeaveOut(entry.line, entry.text, u"there is no option of that name");
    }
    if (is_map) TellMap(entry, parsed.value);
  }

  void TellControl(const IniOutline::Entry& entry, ui::Control& control, TextView value) {
    using enum ui::ControlKind;
    const ui::ControlKind kind = control.kind();
    if (kind != kTextBox && kind != kComboBox && kind != kCheckBox && kind != kListBox) {
      return LeaveOut(entry.line, entry.text,
                      Concat({u"a ", ui::KindName(kind), u" takes no value"}));
    }
    const Text shown = PrintedValue(control);
    if (kind == kComboBox && shown != value) {
      return LeaveOut(entry.line, entry.text,
                      Concat({u"the list has no such item, \"", shown, u"\" stays"}));
    }
    const Option* const option = FindOption(control);
    TextView meaning;
    if (kind == kCheckBox) meaning = StateName(*option, NumberValue(control));
    if (kind == kListBox) {
      const auto& list = static_cast<const ui::ListBox&>(control);
      meaning = list.ListIndex() < 0 ? TextView(u"none chosen") : list.Item(list.ListIndex());
    }
    account_.Set(entry.line,
                 Concat({control.name(), option == nullptr ? u", which is no option," : u""}),
                 shown, meaning);
    if (option == nullptr) return;
    const auto [earlier, is_first] = set_at_.try_emplace(option, entry.line);
    if (!is_first) {
      account_.Note(entry.line, Concat({control.name(), u" was set in line ",
                                        Decimal(std::int64_t(earlier->second)), u" already"}));
    }
    if (option->max_length > 0 && std::ssize(shown) > option->max_length) {
      account_.Note(entry.line, Concat({u"this is longer than the ", Decimal(option->max_length),
                                        u" characters that can be typed"}));
    }
    if (kind == kComboBox) {
      account_.Note(entry.line, Concat({u"maps are looked up in the ",
                                        CatalogueName(trial_.UsesTeamSabreMaps()),
                                        u" catalogue from here on"}));
    }
  }

  void TellMap(const IniOutline::Entry& entry, TextView value) {
    const SelectedMapList& selected = trial_.maps().selected;
    if (selected.Count() > maps_before_) {
      return account_.Select(entry.line, selected.At(selected.Count()));
    }
    const std::vector<TextView> fields = SplitStoredMap(value);
    const TextView file = fields.at(fields.size() == 4 ? 3 : 2);
    account_.Lose(entry.line, u"MISSING map", TrimBlanks(file),
                  trial_.WhyMissing(fields[0], fields[1], file));
  }

  // The entries from here on.
  void TellNotTaken(bool has_failed) {
    const std::span<const IniOutline::Entry> rest = std::span(outline_.entries).subspan(at_);
    auto count =
        static_cast<std::size_t>(std::ranges::count(rest, true, &IniOutline::Entry::in_section));
    for (const IniOutline::Entry& entry : rest) {
      if (!entry.in_section) {
        TellOutsider(entry);
      } else if (count != 0) {
        const std::size_t lost = std::exchange(count, 0);
        account_.Lose(entry.line, u"LEFT OUT", lost == 1 ? entry.text : Text(u"what follows"),
                      has_failed ? u"loading has ended before" : u"a single entry is not read",
                      lost);
      }
    }
  }

  void TellNotMentioned() {
    std::vector<Text> names;
    for (const Option& option : Options()) {
      if (!set_at_.contains(&option)) names.emplace_back(option.key);
    }
    if (!names.empty())
      account_.Note(0, u"these options stay as they are: " + Joined(names, u", "));
  }

  DialogTrial& trial_;
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
  const IniOutline outline = OutlineIni(DecodeTextFile(bytes).text, kSettingsSection);
  DialogTrial trial(conditions);
  trial.WhileOpen([&] {
    SettingsWatch watch(trial, outline, account);
    trial.LoadSettings(bytes, [&](TextView) { watch.Taken(); });
    watch.Ended();
    trial.Conclude(account);
  });
  return account;
}

}  // namespace quill::host

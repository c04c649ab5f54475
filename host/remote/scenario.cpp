// Reading scenario files line by line.
#include "host/remote/scenario.h"

#include <algorithm>
#include <set>

#include "dialog/game_types.h"
#include "host/kit/text_file.h"
#include "host/remote/wire.h"
#include "support/number_text.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

constexpr TextView kRightNames[] = {u"Change GS Session Type",
                                    u"Change GS Max Players",
                                    u"Change GS Game Mod",
                                    u"Change GS Windowed Mode",
                                    u"Change GS Dedicated Mode",
                                    u"Change GS Custom Skins Option",
                                    u"Change GS Req Nova Login Option",
                                    u"Change GS Game Port"};

constexpr Setting kSuperAdministrator = {u"Super Administrator", 0, SettingForm::kSwitch, u"0"};

constexpr TextView kStartActions[] = {u"succeed", u"fail", u"run", u"never answer",
                                      u"answer rubbish"};
constexpr StartAction kStartActionOf[] = {StartAction::kSucceed, StartAction::kFail,
                                          StartAction::kRun, StartAction::kNever,
                                          StartAction::kRubbish};

[[noreturn]] void Fail(TextView what) {
  throw RuntimeError(ErrorNumber::kInvalidProcedureCall, what);
}

// Blanks and tabs at the ends do not count; a value in double quotes is what stands between them.
TextView Stripped(TextView text) {
  const std::size_t begin = text.find_first_not_of(u" \t");
  if (begin == TextView::npos) return {};
  return text.substr(begin, text.find_last_not_of(u" \t") - begin + 1);
}

TextView Unquoted(TextView text) {
  const bool is_quoted = text.size() >= 2 && text.front() == u'"' && text.back() == u'"';
  return is_quoted ? text.substr(1, text.size() - 2) : text;
}

std::int32_t WholeNumber(TextView name, TextView text) {
  std::int32_t number = 0;
  if (!ParseWholeNumber(text, number)) {
    Fail(Concat({name, u" must be a whole number, not \"", text, u"\""}));
  }
  return number;
}

const Setting& FindSetting(std::span<const Setting> settings, TextView name) {
  const auto found = std::find_if(settings.begin(), settings.end(), [&](const Setting& setting) {
    return EqualIgnoringCase(setting.name, name);
  });
  if (found == settings.end()) Fail(Concat({u"there is no setting \"", name, u"\" here"}));
  return *found;
}

// Takes the lines of one file in order.
class ScenarioReader {
 public:
  Scenario Read(TextView text) {
    int number = 0;
    while (!text.empty()) {
      ++number;
      const std::size_t length = std::min(text.find_first_of(u"\r\n"), text.size());
      const TextView line = Stripped(text.substr(0, length));
      text.remove_prefix(length);
      if (text.starts_with(kLineBreak)) text.remove_prefix(1);
      if (!text.empty()) text.remove_prefix(1);
      try {
        TakeLine(line);
      } catch (const RuntimeError& error) {
        Fail(Concat({u"line ", Decimal(number), u": ", error.description()}));
      }
    }
    CheckStart();
    return std::move(scenario_);
  }

 private:
  using TakeEntry = void (ScenarioReader::*)(TextView line);
  struct Section {
    TextView name;
    TakeEntry take;
  };

  void TakeLine(TextView line) {
    if (line.empty() || line[0] == u';' || line[0] == u'#') return;
    if (line[0] == u'[') {
      BeginSection(line);
    } else if (take_ == nullptr) {
      Fail(u"there is no section before this line");
    } else {
      (this->*take_)(line);
    }
  }

  void BeginSection(TextView line) {
    static constexpr Section kSections[] = {
        {u"Profile", &ScenarioReader::TakeProfile},
        {u"Operator", &ScenarioReader::TakeRight},
        {u"Settings", &ScenarioReader::TakeSetting},
        {u"Fixed Values", &ScenarioReader::TakeFixedValue},
        {u"Mods", &ScenarioReader::TakeMod},
        {u"Maps", &ScenarioReader::TakeMap},
        {u"Raw Fields", &ScenarioReader::TakeRawField},
        {u"Start", &ScenarioReader::TakeStart},
    };
    if (line.back() != u']') Fail(u"the section's name does not end with \"]\"");
    const TextView name = Stripped(line.substr(1, line.size() - 2));
    for (const Section& section : kSections) {
      if (!EqualIgnoringCase(section.name, name)) continue;
      NoteOnce(Text(section.name), Concat({u"the section [", section.name, u"]"}));
      section_ = section.name;
      take_ = section.take;
      if (section.name == u"Fixed Values") scenario_.has_fixed_values = true;
      return;
    }
    Fail(Concat({u"there is no section [", name, u"]"}));
  }

  struct Entry {
    TextView key;
    TextView value;
  };

  // The line as key and value; each key counts once in its section.
  Entry SplitEntry(TextView line) {
    const std::size_t equals = line.find(u'=');
    if (equals == TextView::npos) Fail(u"a line of this section reads name = value");
    const Entry entry{Stripped(line.substr(0, equals)),
                      Unquoted(Stripped(line.substr(equals + 1)))};
    NoteOnce(Concat({section_, u"\n", ToLower(entry.key)}), Concat({u"\"", entry.key, u"\""}));
    return entry;
  }

  void NoteOnce(Text what, TextView name) {
    if (!seen_.insert(std::move(what)).second) Fail(Concat({name, u" is given twice"}));
  }

  void TakeProfile(TextView line) {
    const Entry entry = SplitEntry(line);
    if (EqualIgnoringCase(entry.key, u"Index")) {
      scenario_.index = WholeNumber(u"Index", entry.value);
    } else if (EqualIgnoringCase(entry.key, u"Target")) {
      scenario_.target = entry.value;
    } else {
      Fail(Concat({u"a profile has Index and Target, not \"", entry.key, u"\""}));
    }
  }

  void TakeRight(TextView line) {
    const Entry entry = SplitEntry(line);
    if (EqualIgnoringCase(entry.key, kSuperAdministrator.name)) {
      scenario_.super_administrator = SettingValue(kSuperAdministrator, entry.value) == u"1";
      return;
    }
    const bool is_known =
        std::any_of(std::begin(kRightNames), std::end(kRightNames),
                    [&](TextView name) { return EqualIgnoringCase(name, entry.key); });
    if (!is_known) Fail(Concat({u"there is no right \"", entry.key, u"\""}));
    scenario_.rights.push_back({Text(entry.key), Text(entry.value)});
  }

  void TakeSetting(TextView line) { TakeField(CurrentSettings(), line); }

  void TakeFixedValue(TextView line) { TakeField(FixedSettings(), line); }

  void TakeField(std::span<const Setting> settings, TextView line) {
    const Entry entry = SplitEntry(line);
    const Setting& setting = FindSetting(settings, entry.key);
    scenario_.fields[static_cast<std::size_t>(setting.field)] = SettingValue(setting, entry.value);
  }

  void TakeMod(TextView line) {
    const TextView mod = Unquoted(line);
    if (mod.find(kListSeparator) != TextView::npos) Fail(u"a mod's name has no \"|\" in it");
    NoteOnce(Concat({section_, u"\n", mod}), Concat({u"the mod \"", mod, u"\""}));
    scenario_.mods.emplace_back(mod);
  }

  void TakeMap(TextView line) {
    const std::size_t colon = line.find(u':');
    const std::size_t open = line.rfind(u'<');
    if (colon == TextView::npos || open == TextView::npos || open < colon || line.back() != u'>') {
      Fail(u"a map reads game type: Display Name <FILE.BMS>");
    }
    const TextView type = Stripped(line.substr(0, colon));
    const std::optional<int> code = FindGameType(type);
    if (!code) Fail(Concat({u"there is no game type \"", type, u"\""}));
    const TextView name = Stripped(line.substr(colon + 1, open - colon - 1));
    const TextView file = Stripped(line.substr(open + 1, line.size() - open - 2));
    if (name.empty() || file.empty()) Fail(u"a map has a display name and a file name");
    NoteOnce(Concat({section_, u"\n", Decimal(*code), u"\n", ToLower(file)}),
             Concat({u"the map ", file}));
    scenario_.maps.push_back({Text(name), Text(file), *code});
  }

  void TakeRawField(TextView line) {
    const Entry entry = SplitEntry(line);
    constexpr std::int32_t kHighestRawField = 99;
    const std::int32_t field = WholeNumber(u"the field's number", entry.key);
    if (field < 0 || field > kHighestRawField) Fail(u"a field's number lies from 0 to 99");
    scenario_.raw_fields[field] = entry.value;
  }

  void TakeStart(TextView line) {
    const Entry entry = SplitEntry(line);
    StartBehaviour& start = scenario_.start;
    if (EqualIgnoringCase(entry.key, u"Action")) {
      const auto* action =
          std::find_if(std::begin(kStartActions), std::end(kStartActions),
                       [&](TextView name) { return EqualIgnoringCase(name, entry.value); });
      if (action == std::end(kStartActions)) {
        Fail(Concat({u"Action must be succeed, fail, run, never answer or answer rubbish, not \"",
                     entry.value, u"\""}));
      }
      start.action = kStartActionOf[action - std::begin(kStartActions)];
    } else if (EqualIgnoringCase(entry.key, u"Number")) {
      start.number = WholeNumber(u"Number", entry.value);
      if (start.number == 0) Fail(u"Number 0 stands for a failure: write Action = fail");
    } else if (EqualIgnoringCase(entry.key, u"Delay")) {
      start.delay = Delay(entry.value);
    } else if (EqualIgnoringCase(entry.key, u"Command")) {
      start.command = entry.value;
    } else if (EqualIgnoringCase(entry.key, u"Text")) {
      start.text = entry.value;
    } else {
      Fail(Concat(
          {u"a start has Action, Number, Delay, Command and Text, not \"", entry.key, u"\""}));
    }
  }

  // Seconds with up to three decimal places.
  static std::chrono::milliseconds Delay(TextView text) {
    constexpr std::int32_t kLongestDelay = 86'400;
    const std::size_t point = std::min(text.find(u'.'), text.size());
    const TextView decimals = text.substr(std::min(point + 1, text.size()));
    const bool is_fine = IsNumber(text) && text.front() != u'-' && decimals.size() <= 3 &&
                         !IsGreaterThan(text, kLongestDelay);
    if (!is_fine) {
      Fail(Concat({u"Delay must be a number of seconds from 0 to 86400, not \"", text, u"\""}));
    }
    Text milliseconds = Concat({text.substr(0, point), decimals});
    milliseconds.append(3 - decimals.size(), u'0');
    return std::chrono::milliseconds(ToInt32(milliseconds));
  }

  void CheckStart() const {
    const StartBehaviour& start = scenario_.start;
    if (start.action == StartAction::kRun && IsBlank(start.command)) {
      Fail(u"[Start] has Action = run, but no Command");
    }
    if (start.action != StartAction::kRun && !start.command.empty()) {
      Fail(u"[Start] has a Command, but not Action = run");
    }
    if (start.action != StartAction::kRubbish && !start.text.empty()) {
      Fail(u"[Start] has a Text, but not Action = answer rubbish");
    }
  }

  Scenario scenario_;
  TextView section_;
  TakeEntry take_ = nullptr;
  std::set<Text> seen_;
};

}  // namespace

Scenario::Scenario() {
  for (const auto settings : {CurrentSettings(), FixedSettings()}) {
    for (const Setting& setting : settings) {
      fields[static_cast<std::size_t>(setting.field)] = setting.initial;
    }
  }
}

Scenario ParseScenario(std::string_view bytes) {
  return ScenarioReader().Read(DecodeTextFile(bytes).text);
}

std::optional<int> FindGameType(TextView name_or_code) {
  for (std::size_t code = 0; code < kGameTypeNames.size(); ++code) {
    if (EqualIgnoringCase(kGameTypeNames[code], name_or_code) ||
        Decimal(static_cast<std::int64_t>(code)) == name_or_code) {
      return static_cast<int>(code);
    }
  }
  return std::nullopt;
}

}  // namespace quill::host

// Reading scenario files line by line, and the reply that a scenario makes.
#include "host/remote/scenario.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <span>

#include "host/kit/text_file.h"
#include "host/kit/text_line.h"
#include "host/remote/wire.h"
#include "maps/map_catalogue.h"
#include "maps/map_entry.h"
#include "plugin/operator_rights.h"
#include "support/number_text.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

constexpr Setting kSuperAdministrator = {u"Super Administrator", 0, SettingForm::kSwitch, u"0"};

// In the order of StartAction.
constexpr TextView kStartActions[] = {u"succeed", u"fail", u"run", u"never answer",
                                      u"answer rubbish"};

[[noreturn]] void Fail(TextView what) {
  throw RuntimeError(ErrorNumber::kInvalidProcedureCall, what);
}

// A value in double quotes is what stands between them.
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

std::chrono::milliseconds Delay(TextView text) {
  const double seconds = IsNumber(text) ? std::stod(ToUtf8(text)) : -1;
  if (seconds < 0 || seconds > 86'400) {
    Fail(Concat({u"Delay must be a number of seconds from 0 to 86400, not \"", text, u"\""}));
  }
  return std::chrono::milliseconds(std::llround(seconds * 1000));
}

StartAction Action(TextView text) {
  const auto* action = std::ranges::find_if(
      kStartActions, [&](TextView name) { return EqualIgnoringCase(name, text); });
  if (action != std::end(kStartActions)) return StartAction(action - std::begin(kStartActions));
  Fail(Concat(
      {u"Action must be succeed, fail, run, never answer or answer rubbish, not \"", text, u"\""}));
}

// The entries that are no settings of the machine.
struct Key {
  TextView section;
  TextView name;
  void (*set)(Scenario& scenario, TextView value);
};
constexpr Key kKeys[] = {
    {u"Profile", u"Index", [](Scenario& s, TextView v) { s.index = WholeNumber(u"Index", v); }},
    {u"Profile", u"Target", [](Scenario& s, TextView v) { s.target = v; }},
    {u"Operator", kSuperAdministrator.name,
     [](Scenario& s, TextView v) {
       s.super_administrator = SettingValue(kSuperAdministrator, v) == u"1";
     }},
    {u"Start", u"Action", [](Scenario& s, TextView v) { s.start.action = Action(v); }},
    {u"Start", u"Number",
     [](Scenario& s, TextView v) {
       s.start.number = WholeNumber(u"Number", v);
       if (s.start.number == 0) Fail(u"Number 0 stands for a failure: write Action = fail");
     }},
    {u"Start", u"Delay", [](Scenario& s, TextView v) { s.start.delay = Delay(v); }},
    {u"Start", u"Command", [](Scenario& s, TextView v) { s.start.command = v; }},
    {u"Start", u"Text", [](Scenario& s, TextView v) { s.start.text = v; }},
};

// Takes the lines of one file in order.
class ScenarioReader {
 public:
  Scenario Read(TextView text) {
    for (int number = 1; !text.empty(); ++number) {
      try {
        ReadLine(WithoutBlanks(TakeLine(text).content));
      } catch (const RuntimeError& error) {
        Fail(Concat({u"line ", Decimal(number), u": ", error.description()}));
      }
    }
    CheckStart();
    return std::move(scenario_);
  }

 private:
  struct Section {
    TextView name;
    void (ScenarioReader::*take)(TextView line);
  };
  static const Section kSections[8];

  void ReadLine(TextView line) {
    if (line.empty() || line[0] == u';' || line[0] == u'#') return;
    if (line[0] == u'[') {
      BeginSection(line);
    } else if (section_ == nullptr) {
      Fail(u"there is no section before this line");
    } else {
      (this->*section_->take)(line);
    }
  }

  void BeginSection(TextView line) {
    if (line.back() != u']') Fail(u"the section's name does not end with \"]\"");
    const TextView name = WithoutBlanks(line.substr(1, line.size() - 2));
    section_ = std::ranges::find_if(
        kSections, [&](const Section& section) { return EqualIgnoringCase(section.name, name); });
    if (section_ == std::end(kSections)) Fail(Concat({u"there is no section [", name, u"]"}));
    NoteOnce({}, Concat({u"the section [", section_->name, u"]"}));
    if (section_->name == u"Fixed Values") scenario_.has_fixed_values = true;
  }

  struct Entry {
    TextView key;
    TextView value;
  };

  // The line as key and value; each key counts once in its section.
  Entry SplitEntry(TextView line) {
    const std::size_t equals = line.find(u'=');
    if (equals == TextView::npos) Fail(u"a line of this section reads name = value");
    const Entry entry{WithoutBlanks(line.substr(0, equals)),
                      Unquoted(WithoutBlanks(line.substr(equals + 1)))};
    NoteOnce(ToLower(entry.key), Concat({u"\"", entry.key, u"\""}));
    return entry;
  }

  void NoteOnce(TextView what, TextView name) {
    const bool is_new = seen_.insert(Concat({section_->name, u"\n", what})).second;
    if (!is_new) Fail(Concat({name, u" is given twice"}));
  }

  void TakeKey(TextView line) {
    const auto [name, value] = SplitEntry(line);
    for (const Key& key : kKeys) {
      if (key.section != section_->name || !EqualIgnoringCase(key.name, name)) continue;
      return key.set(scenario_, value);
    }
    const auto rights = OperatorRights();
    const bool is_right = section_->name == u"Operator" &&
                          std::ranges::any_of(rights, [&](const OperatorRight& right) {
                            return EqualIgnoringCase(right.name, name);
                          });
    if (!is_right) Fail(Concat({u"there is no \"", name, u"\" in [", section_->name, u"]"}));
    scenario_.rights.push_back({Text(name), Right::Form::kText, Text(value)});
  }

  void TakeSetting(TextView line) {
    const auto [name, value] = SplitEntry(line);
    scenario_.Set(name, value);
  }

  void TakeFixedValue(TextView line) {
    const auto [name, value] = SplitEntry(line);
    scenario_.SetFixed(name, value);
  }

  void TakeMod(TextView line) {
    const TextView mod = Unquoted(line);
    if (mod.find(kListSeparator) != TextView::npos) Fail(u"a mod's name has no \"|\" in it");
    NoteOnce(mod, Concat({u"the mod \"", mod, u"\""}));
    scenario_.mods.emplace_back(mod);
  }

  void TakeMap(TextView line) {
    const std::size_t colon = line.find(u':');
    const std::size_t open = line.rfind(u'<');
    if (colon == TextView::npos || open == TextView::npos || open < colon || line.back() != u'>') {
      Fail(u"a map reads game type: Display Name <FILE.BMS>");
    }
    const MapEntry entry = SplitMapEntry(line.substr(colon + 1));
    if (entry.name.empty() || entry.file.empty()) Fail(u"a map has a display name and a file name");
    scenario_.AddMap(WithoutBlanks(line.substr(0, colon)), entry.name, entry.file);
    NoteOnce(Concat({Decimal(scenario_.maps.back().game_type), u"\n", ToLower(entry.file)}),
             Concat({u"the map ", entry.file}));
  }

  void TakeRawField(TextView line) {
    const auto [name, value] = SplitEntry(line);
    scenario_.SetRawField(WholeNumber(u"the field's number", name), value);
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
  const Section* section_ = nullptr;
  std::set<Text> seen_;
};

const ScenarioReader::Section ScenarioReader::kSections[] = {
    {u"Profile", &ScenarioReader::TakeKey},
    {u"Operator", &ScenarioReader::TakeKey},
    {u"Settings", &ScenarioReader::TakeSetting},
    {u"Fixed Values", &ScenarioReader::TakeFixedValue},
    {u"Mods", &ScenarioReader::TakeMod},
    {u"Maps", &ScenarioReader::TakeMap},
    {u"Raw Fields", &ScenarioReader::TakeRawField},
    {u"Start", &ScenarioReader::TakeKey},
};

void SetIn(std::span<const Setting> settings, TextView name, TextView value, Scenario& scenario) {
  for (const Setting& setting : settings) {
    if (!EqualIgnoringCase(setting.name, name)) continue;
    scenario.fields[static_cast<std::size_t>(setting.field)] = SettingValue(setting, value);
    return;
  }
  Fail(Concat({u"there is no setting \"", name, u"\" here"}));
}

Text MapsField(const Scenario& scenario) {
  std::vector<Text> maps;
  for (const SelectedMap& map : scenario.maps) {
    maps.push_back(EncodeField(JoinMapEntry(map.name, map.file) + Decimal(map.game_type)));
  }
  return Joined(maps, kListSeparator);
}

}  // namespace

Scenario::Scenario() {
  for (const auto settings : {CurrentSettings(), FixedSettings()}) {
    for (const Setting& setting : settings) {
      fields[static_cast<std::size_t>(setting.field)] = setting.initial;
    }
  }
}

void Scenario::Set(TextView setting, TextView value) {
  SetIn(CurrentSettings(), setting, value, *this);
}

void Scenario::SetFixed(TextView setting, TextView value) {
  SetIn(FixedSettings(), setting, value, *this);
  has_fixed_values = true;
}

void Scenario::SetRawField(std::int32_t field, TextView text) {
  if (field < 0 || field > 99) Fail(u"a field's number lies from 0 to 99");
  raw_fields[field] = text;
}

void Scenario::AddMap(TextView game_type, TextView name, TextView file) {
  const std::optional<int> code = FindGameType(game_type);
  if (!code) Fail(Concat({u"there is no game type \"", game_type, u"\""}));
  maps.push_back({Text(name), Text(file), *code, true});
}

Scenario ParseScenario(std::string_view bytes) {
  return ScenarioReader().Read(DecodeTextFile(bytes).text);
}

Text SettingsPayload(const Scenario& scenario) {
  std::vector<Text> fields(scenario.has_fixed_values ? kFieldCountWithFixed : kFieldCount);
  for (const auto settings : {CurrentSettings(), FixedSettings()}) {
    for (const Setting& setting : settings) {
      const auto field = static_cast<std::size_t>(setting.field);
      if (field >= fields.size()) continue;
      const Text& value = scenario.fields[field];
      fields[field] = setting.form == SettingForm::kText ? EncodeField(value) : value;
    }
  }
  fields[kModsField] = EncodeField(Joined(scenario.mods, kListSeparator));
  fields[kMapsField] = MapsField(scenario);
  for (const auto& [field, text] : scenario.raw_fields) {
    fields.resize(std::max(fields.size(), static_cast<std::size_t>(field) + 1));
    fields[static_cast<std::size_t>(field)] = text;
  }

  if (scenario.field_count) fields.resize(static_cast<std::size_t>(*scenario.field_count));
  return Joined(fields, kFieldSeparator);
}

Text SettingsReply(const Scenario& scenario) {
  return WriteFrame(SettingsPayload(scenario));
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

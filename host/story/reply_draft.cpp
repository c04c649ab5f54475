// Changes of the draft, over the remote machine's own table of settings.
#include "host/story/reply_draft.h"

#include <algorithm>
#include <span>

#include "host/remote/settings_reply.h"
#include "host/remote/wire.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

constexpr int kMostFields = 1000;

[[noreturn]] void Fail(std::initializer_list<TextView> why) {
  throw RuntimeError(ErrorNumber::kInvalidProcedureCall, Concat(why));
}

void SetIn(std::span<const Setting> settings, TextView name, TextView value, Scenario& scenario) {
  for (const Setting& setting : settings) {
    if (!EqualIgnoringCase(setting.name, name)) continue;
    scenario.fields.at(static_cast<std::size_t>(setting.field)) = SettingValue(setting, value);
    return;
  }
  Fail({u"a reply has no setting \"", name, u"\""});
}

void CheckField(int field) {
  if (field < 0 || field >= kMostFields) Fail({u"a reply has no field ", Decimal(field)});
}

}  // namespace

ReplyDraft::ReplyDraft() {
  Set(u"Server Name", u"Story Server");
  SetMods({u"None", u"Team Sabre"});
}

void ReplyDraft::Set(TextView setting, TextView value) {
  SetIn(CurrentSettings(), setting, value, scenario_);
}

void ReplyDraft::SetFixed(TextView setting, TextView value) {
  SetIn(FixedSettings(), setting, value, scenario_);
  scenario_.has_fixed_values = true;
}

void ReplyDraft::AddMap(TextView game_type, TextView name, TextView file) {
  const std::optional<int> code = FindGameType(game_type);
  if (!code) Fail({u"there is no game type \"", game_type, u"\""});
  scenario_.maps.push_back({Text(name), Text(file), *code});
}

void ReplyDraft::SetRaw(int field, Text text) {
  CheckField(field);
  scenario_.raw_fields[field] = std::move(text);
}

void ReplyDraft::SetEncoded(int field, const std::vector<Text>& texts) {
  Text joined;
  for (const Text& text : texts) {
    if (&text != texts.data()) joined += kListSeparator;
    joined += EncodeField(text);
  }
  SetRaw(field, std::move(joined));
}

void ReplyDraft::SetFieldCount(int count) {
  if (count < 1 || count > kMostFields) Fail({u"a reply cannot have ", Decimal(count), u" fields"});
  field_count_ = count;
}

Text ReplyDraft::Frame() const {
  const Text payload = SettingsPayload(scenario_);
  if (!field_count_) return WriteFrame(payload);
  std::vector<TextView> fields = Split(payload, kFieldSeparator);
  fields.resize(static_cast<std::size_t>(*field_count_));
  Text resized;
  for (std::size_t field = 0; field < fields.size(); ++field) {
    if (field != 0) resized += kFieldSeparator;
    resized += fields[field];
  }
  return WriteFrame(resized);
}

}  // namespace quill::host

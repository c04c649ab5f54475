// Checking, packing and sending a start of the game.
#include "remote/start_command.h"

#include <algorithm>
#include <vector>

#include "dialog/option_control.h"
#include "remote/request_file.h"
#include "support/base64.h"
#include "support/number_text.h"
#include "support/trap.h"

namespace quill {
namespace {

// Part of every start; the remote side defines what the bits mean.
constexpr std::int32_t kAlwaysSetFlags = 0x3802;

constexpr int kFieldCount = 26;
constexpr int kFlagsField = 23;

constexpr std::int32_t kHighestPing = 65535;

void AppendField(Text& payload, const frmrcBHDGS& dialog, const Option& option) {
  Session& session = dialog.session();
  const ui::Control& control = dialog.At(option.key);
  switch (option.payload.form) {
    case FieldForm::kNumber:
      return AppendDecimal(payload, NumberValue(control));
    case FieldForm::kNumberPlusOne:
      return AppendDecimal(payload, NumberValue(control) + 1);
    case FieldForm::kPlainText:
      payload += TextValue(control);
      return;
    case FieldForm::kBase64OrEmpty:
      if (IsBlank(TextValue(control))) return;
      [[fallthrough]];
    default:
      payload += Enc64(TextValue(control), session.code_page, session.reporter);
  }
}

void AppendMapList(Text& payload, Session& session) {
  // A copy: a report of the encoder lets host calls in, and one that opens the plug-in anew empties
  // the rotation.
  const std::vector<SelectedMap> maps = session.maps.selected.maps();
  for (const SelectedMap& map : maps) {
    payload += u'-';
    payload += Enc64(map.name, session.code_page, session.reporter);
    payload += u'_';
    payload += Enc64(map.file, session.code_page, session.reporter);
    payload += u'_';
    AppendDecimal(payload, map.game_type);
    payload += map.server_map ? u"_True" : u"_False";
  }
}

}  // namespace

std::int32_t OptionFlags(const frmrcBHDGS& dialog) {
  auto flags = static_cast<std::uint32_t>(kAlwaysSetFlags);
  for (const Option& option : Options()) {
    const OptionFlag& flag = option.flag;
    if (flag.bit != 0 && NumberValue(dialog.At(option.key)) == flag.added_at) {
      flags |= flag.bit;
    }
  }
  return static_cast<std::int32_t>(flags);
}

Text StartPayload(const frmrcBHDGS& dialog, std::int32_t flags) {
  const auto options = Options();
  Text payload;
  for (int number = 0; number < kFieldCount; ++number) {
    if (number != 0) payload += u'_';
    if (number == kFlagsField) AppendDecimal(payload, flags);
    const auto option = std::ranges::find_if(
        options, [&](const Option& each) { return each.payload.number == number; });
    if (option != options.end()) AppendField(payload, dialog, *option);
  }
  // The map list follows in the last field, which is the mod's.
  payload += u'|';
  AppendMapList(payload, dialog.session());
  return payload;
}

void StartGame(frmrcBHDGS& dialog) {
  Session& session = dialog.session();
  MessageReporter& reporter = session.reporter;
  bool waits = false;
  // The answer to an earlier start is still awaited when this one has not come as far.
  const auto give_up = [&](RuntimeError&) {
    if (waits) dialog.HideStartWait();
  };
  const auto steps = [&](Line& at) {
    const auto text_box = [&](TextView key) -> ui::TextBox& {
      return dialog.Get<ui::TextBox>(key);
    };
    const auto refuse = [&](TextView why) { reporter.Show(MessageKind::kError, why); };

    // In this order: what is repaired before a check that fails stays repaired.
    if (at(), text_box(u"txtName").text().empty()) return refuse(u"Server Name is empty!");
    if (at(), dialog.lstSelMaps.Count() == 0) return refuse(u"You haven't selected any maps!");

    ui::TextBox& min_ping = (at(), text_box(u"txtMinPing"));
    // A text that is no number ends in a report here, while the other two fields have messages.
    if (at(), min_ping.text().empty() || ToInt32(min_ping.text()) > kHighestPing) {
      min_ping.SetText(u"0");
    }
    ui::TextBox& max_ping = (at(), text_box(u"txtMaxPing"));
    if (at(), !IsNumber(max_ping.text())) return refuse(u"Max Ping Field is not numeric!");
    if (at(), IsGreaterThan(max_ping.text(), kHighestPing)) max_ping.SetText(u"1500");
    ui::TextBox& port = (at(), text_box(u"txtPort"));
    if (at(), port.text().empty() || port.text() == u"0") port.SetText(u"17479");
    if (at(), !IsNumber(port.text())) return refuse(u"Game Port Field is not numeric!");

    const std::int32_t flags = (at(), OptionFlags(dialog));
    auto& time = (at(), dialog.Get<ui::ListBox>(u"lstTime"));
    // Of all lists only this one is never sent without a choice.
    if (at(), time.ListIndex() < 0) time.SetListIndex(0);
    auto& loop = (at(), dialog.Get<ui::CheckBox>(u"chkLoop"));
    // A settings file may have set the greyed state.
    if (at(), loop.value() == 2) loop.SetValue(1);

    const Text payload = (at(), StartPayload(dialog, flags));
    // Compressed before anything is set: when the kit fails, no pointer stays busy and no answer
    // to a start is awaited.
    const Text frame = (at(), EncodeFrame(payload, session.kit()));
    // Reports and the host's kit let host calls in; a dialog that they have closed starts nothing.
    if (dialog.unloaded()) return;
    at(), session.toolkit.SetScreenPointer(ui::Pointer::kBusy);
    at(), session.PendingCommand = kStartGame.pending_name;
    // Before the request, which the host may answer at once.
    at(), dialog.ShowStartWait();
    waits = true;
    at(), WriteRequest(session, kStartGame, RequestEnvelope(session, kStartGame, frame));
  };
  Trapped(reporter, u"cmdStart_Error", steps, give_up);
}

}  // namespace quill

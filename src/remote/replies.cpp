// Splitting and routing a reply, filling the dialog from game settings, and taking a start's
// answer: all that the label "RemoteData" takes lines from.
#include "remote/replies.h"

#include <algorithm>
#include <utility>

#include "dialog/frmrcBHDGS.h"
#include "dialog/option_control.h"
#include "remote/request_file.h"
#include "support/base64.h"
#include "support/number_text.h"
#include "support/trap.h"

namespace quill {
namespace {

// A reply of at most this many fields carries no fixed values.
constexpr int kFieldsWithoutFixedValues = 26;

constexpr TextView kTeamSabre = u"Team Sabre";
constexpr TextView kNoMod = u"None";
constexpr TextView kTeamSabreSynonyms[] = {u"teamsabre", u"team sabre", u"exp1.pff", u"exp1"};

bool HasFixedValues(const ReplyFields& fields) {
  return fields.Count() > kFieldsWithoutFixedValues;
}

// In the order of the fields, so that the first missing one is told.
void RepairFixedValues(ReplyFields& fields) {
  for (int field = kFieldsWithoutFixedValues; field < ReplyFields::kMostFields; ++field) {
    for (const Option& option : Options()) {
      if (option.fixed.field != field || option.fixed.repair.empty()) continue;
      fields.RepairNumber(field, option.fixed.repair);
    }
  }
}

// What an option gets: its own field while the operator may change it, else its fixed value.
// Numbers of a reply have 16 bits.
int NumberFor(const ui::Control& control, const Option& option, const ReplyFields& fields) {
  const bool own = control.enabled() || option.fixed.field < 0;
  if (!own && !HasFixedValues(fields)) return option.fixed.without;
  return ToInt16(fields[own ? option.reply.number : option.fixed.field]);
}

TextView KnownModName(TextView name) {
  const bool means_team_sabre = std::ranges::any_of(
      kTeamSabreSynonyms, [&](TextView synonym) { return EqualIgnoringCase(name, synonym); });
  if (means_team_sabre) return kTeamSabre;
  return IsBlank(name) ? kNoMod : name;
}

void FillOption(frmrcBHDGS& dialog, const Option& option, const ReplyFields& fields) {
  const auto [field, form] = option.reply;
  const CodePage& page = dialog.session().code_page;
  switch (form) {
    case FieldForm::kNone:
      return;
    case FieldForm::kBase64OrEmpty:
      if (fields[field].empty()) return;
      return dialog.Get<ui::TextBox>(option.key).SetText(Dec64(fields[field], page));
    case FieldForm::kPlainText:
      return dialog.Get<ui::TextBox>(option.key).SetText(fields[field]);
    case FieldForm::kBase64List: {
      auto& list = dialog.Get<ui::ComboBox>(option.key);
      const Text names = Dec64(fields[field], page);
      PieceCursor items(names, kListSeparator);
      for (TextView item; items.Next(item);) {
        if (!IsBlank(item)) list.AddItem(item);
      }
      // Choosing one rebuilds the catalogue and fills the available maps. An empty list fails here.
      if (list.enabled() || !HasFixedValues(fields)) return list.SetListIndex(0);
      return list.SetText(KnownModName(fields[option.fixed.field]));
    }
    default:
      break;
  }
  ui::Control& control = dialog.At(option.key);
  const int number = NumberFor(control, option, fields);
  const bool is_loop = form == FieldForm::kLoopState && number == 2;
  SetNumberValue(control, form == FieldForm::kNumberPlusOne || is_loop ? number - 1 : number);
}

void HandleGameSettingsReply(Session& session, TextView data, ReplyFields& fields, Line& at) {
  at(), fields.Assign(DecodeFrame(data, session.kit()));
  const DialogInUse dialog((at(), session));
  // Before the options: choosing the mod lists these maps together with the catalogue's.
  at(), session.maps.server.Clear();
  at(), session.maps.server.AppendField(fields[25], session.code_page);
  if (HasFixedValues(fields)) at(), RepairFixedValues(fields);
  // Setting an option can start what follows from it, so the order counts.
  for (const Option& option : Options()) at(), FillOption(*dialog, option, fields);
  // After every reply, whatever its field and its fixed value say.
  at(), dialog->Get<ui::CheckBox>(u"chkWindow").SetValue(1);
  at(), dialog->pointer = ui::Pointer::kDefault;
}

void HandleStartReply(Session& session, TextView data, Line& at) {
  if (frmrcBHDGS* const dialog = session.dialog.get()) dialog->HideStartWait();
  if (at(), ToInt32(data) == 0) {
    session.reporter.Show(MessageKind::kFailed, u"Failed to initialize game process!");
  }
  // Asked anew: while the message was open the host may have closed the dialog.
  if (frmrcBHDGS* const dialog = session.dialog.get()) at(), dialog->Unload();
}

// Adds two fields to the report: the reply's windowed flag and the fixed value of it.
void ExplainTypeMismatch(RuntimeError& error, const ReplyFields& fields) {
  if (!error.Is(ErrorNumber::kTypeMismatch)) return;
  error.AppendToDescription(
      Concat({u" [", fields.ValueOrEmpty(14), u", ", fields.ValueOrEmpty(29), u"]"}));
}

}  // namespace

void ReplyFields::Assign(Text payload) {
  payload_ = std::move(payload);
  count_ = 0;
  PieceCursor pieces(payload_, u"_");
  while (count_ < kMostFields && pieces.Next(fields_[static_cast<std::size_t>(count_)])) ++count_;
}

TextView ReplyFields::operator[](int number) const {
  if (number < 0 || number >= count_) {
    throw RuntimeError(ErrorNumber::kSubscriptOutOfRange,
                       Concat({u"Subscript out of range: the reply has no field ", Decimal(number),
                               u", only ", Decimal(count_)}));
  }
  return fields_[static_cast<std::size_t>(number)];
}

TextView ReplyFields::ValueOrEmpty(int number) const noexcept {
  return number < 0 || number >= count_ ? TextView() : fields_[static_cast<std::size_t>(number)];
}

void ReplyFields::RepairNumber(int number, TextView value) {
  if (!IsNumber((*this)[number])) fields_[static_cast<std::size_t>(number)] = value;
}

void TakeReply(Session& session, TextView data) {
  Text reply;
  // Out here, because the report of a failure reads them.
  ReplyFields fields;
  Trapped(
      session.reporter, u"RemoteData",
      [&](Line& at) {
        at(), reply = data;
        if (session.PendingCommand == kLoadFormCommand) {
          HandleGameSettingsReply(session, reply, fields, at);
        } else if (session.PendingCommand == kStartGameCommand) {
          HandleStartReply(session, reply, at);
        }
      },
      [&](RuntimeError& error) {
        RunEach([&] { session.RestorePointer(); }, [&] { ExplainTypeMismatch(error, fields); });
      });
}

}  // namespace quill

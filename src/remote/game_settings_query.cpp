// Asking for the game settings, and filling the dialog from the reply, step by step.
#include "remote/game_settings_query.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "dialog/frmrcBHDGS.h"
#include "remote/compressed_frame.h"
#include "remote/dialog_in_use.h"
#include "remote/request_file.h"
#include "remote/server_maps_field.h"
#include "support/base64.h"
#include "support/number_text.h"
#include "support/text_pieces.h"

namespace quill {
namespace {

// A reply of at most this many fields carries no fixed values.
constexpr int kFieldsWithoutFixedValues = 26;

constexpr TextView kTeamSabre = u"Team Sabre";
constexpr TextView kNoMod = u"None";
constexpr std::array<TextView, 4> kTeamSabreSynonyms = {u"teamsabre", u"team sabre", u"exp1.pff",
                                                        u"exp1"};

void RepairFixedValues(ReplyFields& fields) {
  if (fields.Count() <= kFieldsWithoutFixedValues) return;
  fields.RepairNumber(26, u"1");
  fields.RepairNumber(27, u"17");
  fields.RepairNumber(29, u"1");
  fields.RepairNumber(30, u"1");
  fields.RepairNumber(31, u"0");
  fields.RepairNumber(32, u"0");
}

// Applies single fields to single options of the dialog.
class OptionFiller {
 public:
  OptionFiller(frmrcBHDGS& dialog, const ReplyFields& fields)
      : dialog_(dialog), fields_(fields), code_page_(dialog.context().code_page) {}

  // An empty field leaves the text as it is.
  void DecodedText(TextView key, int field) {
    if (!fields_[field].empty()) {
      dialog_.Get<ui::TextBox>(key).SetText(Dec64(fields_[field], code_page_));
    }
  }
  void PlainText(TextView key, int field) { dialog_.Get<ui::TextBox>(key).SetText(fields_[field]); }

  // Numbers that count from 1 become positions.
  void Position(TextView key, int field) {
    dialog_.Get<ui::ListBox>(key).SetListIndex(ToInt16(fields_[field]));
  }
  void PositionFromOne(TextView key, int field) {
    dialog_.Get<ui::ListBox>(key).SetListIndex(ToInt16(fields_[field]) - 1);
  }
  void GovernedPositionFromOne(TextView key, int field, int without_fixed, int fixed_field) {
    auto& list = dialog_.Get<ui::ListBox>(key);
    list.SetListIndex(Governed(list, field, without_fixed, fixed_field) - 1);
  }

  void Check(TextView key, int field) {
    dialog_.Get<ui::CheckBox>(key).SetValue(ToInt16(fields_[field]));
  }
  void CheckLoop(TextView key, int field) {
    const int state = ToInt16(fields_[field]);
    dialog_.Get<ui::CheckBox>(key).SetValue(state == 2 ? 1 : state);
  }
  void GovernedCheck(TextView key, int field, int without_fixed, int fixed_field) {
    auto& box = dialog_.Get<ui::CheckBox>(key);
    box.SetValue(Governed(box, field, without_fixed, fixed_field));
  }

  void AppendMods(TextView key, int field) {
    auto& mods = dialog_.Get<ui::ComboBox>(key);
    const Text names = Dec64(fields_[field], code_page_);
    PieceCursor items(names, kListSeparator);
    for (TextView item; items.Next(item);) {
      if (!IsBlank(item)) mods.AddItem(item);
    }
  }
  void SelectMod(TextView key, int fixed_field) {
    auto& mods = dialog_.Get<ui::ComboBox>(key);
    if (mods.enabled() || fields_.Count() <= kFieldsWithoutFixedValues) {
      mods.SetListIndex(0);
    } else {
      mods.SetText(KnownModName(fields_[fixed_field]));
    }
  }

 private:
  // What an option gets that the operator may be forbidden to change.
  int Governed(const ui::Control& option, int field, int without_fixed, int fixed_field) const {
    if (option.enabled()) return ToInt16(fields_[field]);
    if (fields_.Count() <= kFieldsWithoutFixedValues) return without_fixed;
    return ToInt16(fields_[fixed_field]);
  }

  static TextView KnownModName(TextView name) {
    const bool means_team_sabre = std::ranges::any_of(
        kTeamSabreSynonyms, [&](TextView synonym) { return EqualIgnoringCase(name, synonym); });
    if (means_team_sabre) return kTeamSabre;
    return IsBlank(name) ? kNoMod : name;
  }

  frmrcBHDGS& dialog_;
  const ReplyFields& fields_;
  const CodePage& code_page_;
};

}  // namespace

void SendGameSettingsQuery(RemoteContext& context) {
  WriteRequest(context.dialog, kGameSettingsQuery, RequestEnvelope(context, kGameSettingsQuery));
}

void HandleGameSettingsReply(RemoteContext& context, TextView data, ReplyFields& fields, Line& at) {
  DialogContext& shared = context.dialog;
  at(), fields.Assign(DecodeFrame(data, *shared.file_kit));
  const DialogInUse dialog((at(), shared));
  at(), shared.maps.server.Clear();
  at(), ReadServerMaps(fields[25], shared.code_page, shared.maps.server);
  at(), RepairFixedValues(fields);

  // Setting an option can start what follows from it, so the order counts.
  OptionFiller fill(*dialog, fields);
  at(), fill.DecodedText(u"txtMessage", 0);
  at(), fill.DecodedText(u"txtName", 1);
  at(), fill.DecodedText(u"txtCountry", 2);
  at(), fill.DecodedText(u"txtPassword", 3);
  at(), fill.GovernedPositionFromOne(u"lstSession", 4, 1, 26);
  at(), fill.GovernedPositionFromOne(u"lstMax", 5, 16, 27);
  at(), fill.Position(u"lstDelay", 6);
  at(), fill.CheckLoop(u"chkLoop", 7);
  at(), fill.PositionFromOne(u"lstKills", 8);
  at(), fill.PositionFromOne(u"lstScore", 8);
  at(), fill.PositionFromOne(u"lstZone", 9);
  at(), fill.PositionFromOne(u"lstRespawn", 10);
  at(), fill.PositionFromOne(u"lstTime", 11);
  at(), fill.GovernedCheck(u"chkNova", 12, 0, 32);
  at(), fill.GovernedCheck(u"chkSkins", 13, 0, 31);
  at(), fill.GovernedCheck(u"chkWindow", 14, 1, 29);
  at(), fill.GovernedCheck(u"chkDedi", 15, 1, 30);
  at(), fill.AppendMods(u"cboMods", 16);
  at(), fill.SelectMod(u"cboMods", 28);
  at(), fill.DecodedText(u"txtBlue", 17);
  at(), fill.DecodedText(u"txtRed", 18);
  at(), fill.Check(u"chkMinPing", 20);
  at(), fill.PlainText(u"txtMinPing", 21);
  at(), fill.Check(u"chkMaxPing", 22);
  at(), fill.PlainText(u"txtMaxPing", 23);
  at(), fill.PlainText(u"txtPort", 24);
  at(), dialog->Get<ui::CheckBox>(u"chkWindow").SetValue(1);
  at(), dialog->SetPointer(ui::Pointer::kDefault);
}

}  // namespace quill

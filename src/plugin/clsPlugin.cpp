// The members that the host calls, each with its trap.
#include "plugin/clsPlugin.h"

#include <utility>

#include "dialog/frmrcBHDGS.h"
#include "plugin/operator_rights.h"
#include "remote/dialog_in_use.h"
#include "remote/game_settings_query.h"
#include "remote/reply_routing.h"
#include "support/trap.h"
#include "support/version_text.h"

namespace quill {
namespace {

// A failed call must not create a dialog only to reset its pointer.
void RestorePointer(const DialogContext& context) {
  if (context.dialog) context.dialog->SetPointer(ui::Pointer::kDefault);
}

}  // namespace

clsPlugin::clsPlugin(mdlBHDGS& module) : module_(module) {
  module_.SubMain();
}

Text clsPlugin::dllVersion(TextView) const {
  return VersionText();
}

PLUGIN clsPlugin::GetData() const {
  return PluginRecord();
}

void clsPlugin::SetPrivis(std::shared_ptr<HostCollection> NameCol,
                          std::shared_ptr<HostCollection> ValCol, bool IsSuperAdmin) {
  Trapped(module_.dialog.reporter, u"SetPrivis", [&](Line& at) {
    at(), module_.NameCol = NameCol;
    at(), module_.ValCol = std::move(ValCol);
    const DialogInUse dialog((at(), module_.dialog));
    if (IsSuperAdmin) return;
    if (at(), !NameCol) throw RuntimeError(ErrorNumber::kObjectNotSet);
    at(), ApplyOperatorRights(*NameCol, *dialog);
  });
}

void clsPlugin::LoadInterface(std::int32_t Index, std::int32_t, const HostArray& PDAT) {
  DialogContext& context = module_.dialog;
  RemoteContext& remote = module_.remote;
  Trapped(
      context.reporter, u"LoadInterface",
      [&](Line& at) {
        at(), context.Index = Index;
        at(), remote.TargetId = PDAT.ElementText(1);
        at(), context.maps.selected.Clear();
        context.maps.history.Forget();
        const DialogInUse dialog((at(), context));
        // The answer to a start would be taken for that to the query, so nobody waits for it.
        dialog->start_wait().End();
        if (remote.PendingCommand == kStartGameCommand) {
          at(), context.toolkit.SetScreenPointer(ui::Pointer::kDefault);
        }
        at(), dialog->SetPointer(ui::Pointer::kBusy);
        at(), remote.PendingCommand = kLoadFormCommand;
        at(), SendGameSettingsQuery(remote);
        at(), dialog->ShowModal();
      },
      [&](RuntimeError&) { RestorePointer(context); });
}

void clsPlugin::RemoteData(TextView Data) {
  Text reply;  // the host may change its own while this runs
  ReplyFields fields;
  Trapped(
      module_.dialog.reporter, u"RemoteData",
      [&](Line& at) {
        at(), reply = Data;
        RouteReply(module_.remote, reply, fields, at);
      },
      [&](RuntimeError& error) {
        RunEach([&] { RestorePointer(module_.dialog); },
                [&] { ExplainTypeMismatch(error, fields); });
      });
}

void clsPlugin::HideInterface() {
  const DialogInUse dialog(module_.dialog);
  dialog->Hide();
}

}  // namespace quill

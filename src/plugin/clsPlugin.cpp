// The members that the host calls, with their traps.
#include "plugin/clsPlugin.h"

#include <utility>

#include "dialog/frmrcBHDGS.h"
#include "plugin/operator_rights.h"
#include "remote/replies.h"
#include "remote/request_file.h"
#include "support/trap.h"
#include "support/version.h"

namespace quill {

clsPlugin::clsPlugin(mdlBHDGS& module) : module_(module) {
  // Not when the library is loaded: COM objects must not be created under the loader's lock.
  module_.SubMain();
}

Text clsPlugin::dllVersion(TextView) const {
  return Text(kVersionText);
}

PLUGIN clsPlugin::GetData() const {
  return {};
}

void clsPlugin::SetPrivis(std::shared_ptr<HostCollection> NameCol,
                          std::shared_ptr<HostCollection> ValCol, bool IsSuperAdmin) {
  Trapped(module_.reporter, u"SetPrivis", [&](Line& at) {
    at(), module_.NameCol = NameCol;
    at(), module_.ValCol = std::move(ValCol);
    // For every operator: whichever call comes first creates the dialog.
    const DialogInUse dialog((at(), module_));
    if (IsSuperAdmin) return;
    if (at(), !NameCol) throw RuntimeError(ErrorNumber::kObjectNotSet);
    at(), ApplyOperatorRights(*NameCol, *dialog);
  });
}

void clsPlugin::LoadInterface(std::int32_t Index, std::int32_t, const HostArray& PDAT) {
  Session& session = module_;
  Trapped(
      session.reporter, u"LoadInterface",
      [&](Line& at) {
        at(), session.Index = Index;
        at(), session.TargetId = PDAT.ElementText(1);
        // Only the model: a dialog that exists shows its rows until the next refresh.
        at(), session.maps.selected.Clear();
        const DialogInUse dialog((at(), session));
        // In a dialog that is still shown the former rotation can be brought back.
        if (!dialog->shown()) session.maps.history.Forget();
        // The answer to a start would be taken for that to the query, so nobody waits for it.
        dialog->HideStartWait();
        if (session.PendingCommand == kStartGameCommand) {
          at(), session.toolkit.SetScreenPointer(ui::Pointer::kDefault);
        }
        at(), dialog->pointer = ui::Pointer::kBusy;
        at(), session.PendingCommand = kLoadFormCommand;
        at(),
            WriteRequest(session, kGameSettingsQuery, RequestEnvelope(session, kGameSettingsQuery));
        at(), dialog->ShowModal();
      },
      [&](RuntimeError&) { session.RestorePointer(); });
}

void clsPlugin::RemoteData(TextView Data) {
  TakeReply(module_, Data);
}

void clsPlugin::HideInterface() {
  const DialogInUse dialog(module_);
  dialog->Hide();
}

}  // namespace quill

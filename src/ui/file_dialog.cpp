// The dialog's file dialog: the question to the operator and the answer.
#include "ui/file_dialog.h"

#include <utility>

#include "ui/form.h"

namespace quill::ui {

FileDialog::FileDialog(Form& form, Text name)
    : Control(form, ControlKind::kFileDialog, std::move(name)) {}

Text FileDialog::ShowOpen() {
  return Show(false);
}

Text FileDialog::ShowSave() {
  return Show(true);
}

Text FileDialog::Show(bool save) {
  // The operator takes his time, and the host may unload the form meanwhile.
  const KeepAlive alive(form().weak_from_this().lock());
  request.save = save;
  const FileDialogRequest asked = request;
  const std::vector<Text> picked = form().toolkit().ShowFileDialog(form(), asked);
  request.file_name = picked.empty() ? Text() : picked.front();
  return request.file_name;
}

}  // namespace quill::ui

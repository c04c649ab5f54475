// The dialog's file dialog: a control without a window of its own that asks the operator for a
// file.
#pragma once

#include "ui/control.h"

namespace quill::ui {

class FileDialog final : public Control {
 public:
  FileDialog(Form& form, Text name);

  // What the next ShowOpen or ShowSave asks. Its file_name is the name that is proposed, and
  // afterwards the answer: empty on cancel.
  FileDialogRequest request;

  // Both return the full path that was picked (the first, should several be), empty on cancel.
  Text ShowOpen();
  Text ShowSave();

 private:
  Text Show(bool save);
};

}  // namespace quill::ui

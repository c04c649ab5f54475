// What the remote commands work with, beyond the dialog's own context.
#pragma once

#include "dialog/dialog_context.h"

namespace quill {

inline constexpr TextView kLoadFormCommand = u"LoadForm";
inline constexpr TextView kStartGameCommand = u"StartGame";

struct RemoteContext {
  explicit RemoteContext(DialogContext& dialog_context) : dialog(dialog_context) {}

  DialogContext& dialog;
  Text TargetId;        // the remote side's id, as the host gave it
  Text PendingCommand;  // whose reply is awaited: empty, kLoadFormCommand or kStartGameCommand
};

}  // namespace quill

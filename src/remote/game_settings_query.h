// The game-settings query, and how its reply fills the dialog.
#pragma once

#include "remote/reply_fields.h"
#include "remote/request_file.h"
#include "support/text.h"
#include "support/trap.h"

namespace quill {

// Writes the request file. The caller has set PendingCommand.
void SendGameSettingsQuery(Session& session);

// Fills the dialog, created hidden when there is none, the list of mods and the server map list
// from the reply `data`. `fields` takes the reply's fields, so that the caller can tell about them
// when this fails; `at` notes the step. What was applied before a failing step stays.
void HandleGameSettingsReply(Session& session, TextView data, ReplyFields& fields, Line& at);

}  // namespace quill

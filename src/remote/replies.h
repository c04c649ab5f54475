// Replies of the remote side: which command they answer, and what they do.
#pragma once

#include "dialog/session.h"
#include "support/text.h"

namespace quill {

// Handles a reply to PendingCommand, which keeps its value; drops it when nothing is awaited.
// `data` is copied first: the host may change its own meanwhile. What was applied before a failing
// step stays. Trapped as "RemoteData".
//
// Game settings fill the dialog, created hidden when there is none, its list of mods and the server
// map list. A start's answer of 0 is told to the operator; any number unloads the dialog, if there
// is one.
void TakeReply(Session& session, TextView data);

}  // namespace quill

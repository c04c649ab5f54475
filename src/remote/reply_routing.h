// Brings a reply to the handler of the command that waits for it.
#pragma once

#include "remote/reply_fields.h"
#include "remote/request_file.h"
#include "support/runtime_error.h"
#include "support/text.h"
#include "support/trap.h"

namespace quill {

// Handles `data` as the reply to PendingCommand, which keeps its value; drops it when nothing is
// awaited. `fields` takes the fields of a game-settings reply; `at` notes the step.
void RouteReply(Session& session, TextView data, ReplyFields& fields, Line& at);

// Adds two telling fields of the reply to the description of a type mismatch; leaves other errors
// alone.
void ExplainTypeMismatch(RuntimeError& error, const ReplyFields& fields);

}  // namespace quill

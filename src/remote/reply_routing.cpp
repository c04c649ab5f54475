// Choosing the handler of a reply.
#include "remote/reply_routing.h"

#include "remote/game_settings_query.h"
#include "remote/start_command.h"

namespace quill {

void RouteReply(Session& session, TextView data, ReplyFields& fields, Line& at) {
  if (session.PendingCommand == kLoadFormCommand) {
    HandleGameSettingsReply(session, data, fields, at);
  } else if (session.PendingCommand == kStartGameCommand) {
    HandleStartReply(session, data, at);
  }
}

void ExplainTypeMismatch(RuntimeError& error, const ReplyFields& fields) {
  if (!error.Is(ErrorNumber::kTypeMismatch)) return;
  error.AppendToDescription(
      Concat({u" [", fields.ValueOrEmpty(14), u", ", fields.ValueOrEmpty(29), u"]"}));
}

}  // namespace quill

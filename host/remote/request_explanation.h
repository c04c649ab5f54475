// Requests told to people: the start record and the output of "quillhost decode". Lines end in LF.
#pragma once

#include "host/remote/start_request.h"
#include "host/remote/wire.h"
#include "support/text.h"

namespace quill::host {

// Command, target and profile.
[[nodiscard]] Text ExplainEnvelope(const RequestEnvelope& envelope);

// Every option with what was sent and what it means, the flags bit by bit, every map in order with
// its game type, and the findings.
[[nodiscard]] Text ExplainStartRequest(const StartRequest& request);

}  // namespace quill::host

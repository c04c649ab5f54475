// The one line that a request file holds: what is asked of which target for which profile.
#pragma once

#include <cstdint>

#include "support/text.h"

namespace quill::host {

struct RequestEnvelope {
  Text command;  // kQueryCommand or kStartCommand
  Text target;   // may hold anything, the markers of the envelope included
  std::int32_t index = 0;
  Text frame;  // the compressed frame; empty for a command without payload
};

// Fails with kInvalidProcedureCall and a description of what is wrong: another prefix or an unknown
// command, no index, a frame that is missing or not wanted. Of several places where the envelope
// could be divided the last one counts.
[[nodiscard]] RequestEnvelope ParseRequestEnvelope(TextView text);

// Where under the host's root the request file of a command lies.
[[nodiscard]] Text RequestPath(TextView host_root, TextView command);

}  // namespace quill::host

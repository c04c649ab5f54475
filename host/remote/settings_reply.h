// The remote machine's reply to a game-settings query.
#pragma once

#include "host/remote/scenario.h"
#include "support/text.h"

namespace quill::host {

// The reply's fields: 26, or 33 with fixed values, or more where the scenario sets raw fields
// beyond.
[[nodiscard]] Text SettingsPayload(const Scenario& scenario);

// The same as it travels, in its compressed frame.
[[nodiscard]] Text SettingsReply(const Scenario& scenario);

}  // namespace quill::host

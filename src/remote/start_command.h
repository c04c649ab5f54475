// The start-game command: checks and repairs the options, packs them with the rotation into the
// start payload, and reports the remote side's answer.
#pragma once

#include <cstdint>

#include "dialog/frmrcBHDGS.h"
#include "remote/request_file.h"
#include "support/text.h"
#include "support/trap.h"

namespace quill {

// What the Start button's release does. A failed check shows its message and sends nothing; repairs
// that were made before stay. Trapped as "cmdStart_Error".
void StartGame(Session& session, frmrcBHDGS& dialog);

// The check boxes that travel as bits of one number.
[[nodiscard]] std::int32_t OptionFlags(const frmrcBHDGS& dialog);

// The options as they stand, with `flags` among them, and the rotation.
[[nodiscard]] Text StartPayload(const frmrcBHDGS& dialog, std::int32_t flags);

// Tells the operator when the reply `data` is 0 and unloads the dialog, if there is one. A reply
// that is no 32-bit number fails with kTypeMismatch or kOverflow and leaves the dialog alone. `at`
// notes the step.
void HandleStartReply(Session& session, TextView data, Line& at);

}  // namespace quill

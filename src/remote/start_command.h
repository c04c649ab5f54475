// The start-game command: checks and repairs the options, packs them with the rotation into the
// start payload.
#pragma once

#include <cstdint>

#include "dialog/frmrcBHDGS.h"
#include "support/text.h"

namespace quill {

// What the Start button's release does. A failed check shows its message and sends nothing; repairs
// that were made before stay. Trapped as "cmdStart_Error".
void StartGame(frmrcBHDGS& dialog);

// The check boxes that travel as bits of one number.
[[nodiscard]] std::int32_t OptionFlags(const frmrcBHDGS& dialog);

// The options as they stand, with `flags` among them, and the rotation.
[[nodiscard]] Text StartPayload(const frmrcBHDGS& dialog, std::int32_t flags);

}  // namespace quill

// The rights that decide which options an operator may change. A permission is the enabled state of
// the option's control and is held nowhere else.
#pragma once

#include <span>

#include "dialog/frmrcBHDGS.h"
#include "plugin/host_objects.h"
#include "support/text.h"

namespace quill {

struct OperatorRight {
  TextView name;    // the key in the host's collection
  TextView option;  // the control that it governs
};

// In the order in which they are applied.
[[nodiscard]] std::span<const OperatorRight> OperatorRights() noexcept;

// Enables the options that are granted and disables the others, unless `granted` is empty. A
// failure ends this at that right; the rights before it stay applied.
void ApplyOperatorRights(HostCollection& granted, frmrcBHDGS& dialog);

}  // namespace quill

// The object that the host creates: the plug-in class behind its interface, bound early or late.
#pragma once

#include "com/automation.h"

namespace quill::com {

// Makes one and asks it for `wanted`. Start-up has run when it exists.
[[nodiscard]] HRESULT MakePluginObject(REFIID wanted, void** object);

}  // namespace quill::com

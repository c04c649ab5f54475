// The class factory that COM creates the plug-in's objects through.
#pragma once

#include "win32/com/automation.h"

namespace quill::com {

[[nodiscard]] HRESULT MakeClassFactory(REFIID wanted, void** object);

}  // namespace quill::com

// The error object that the file kit's LogError is handed, with the members of hosts' own error
// objects: Number (the default member), Description, Source, HelpFile and HelpContext may be read
// and written, LastDllError is 0, Clear empties them, and Raise(Number, Source, Description,
// HelpFile, HelpContext) fails towards its caller with that error.
#pragma once

#include "com/automation.h"
#include "com/com_ptr.h"
#include "support/runtime_error.h"

namespace quill::com {

[[nodiscard]] ComPtr<IDispatch> MakeErrorObject(const RuntimeError& error);

}  // namespace quill::com

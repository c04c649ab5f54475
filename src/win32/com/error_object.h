// The error object that the file kit's LogError is handed: Number (the default member), Description
// and Source, read only.
#pragma once

#include "support/runtime_error.h"
#include "win32/com/automation.h"
#include "win32/com/com_ptr.h"

namespace quill::com {

[[nodiscard]] ComPtr<IDispatch> MakeErrorObject(const RuntimeError& error);

}  // namespace quill::com

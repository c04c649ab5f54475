// Writes and removes the registry entries of the class and its type library.
#pragma once

#include "win32/com/class_registration.h"

namespace quill::com {

// Registers this library's file. On failure everything written is taken back.
[[nodiscard]] HRESULT Register(RegistrationScope scope) noexcept;

// Removes what Register writes; entries that are not there are no failure.
[[nodiscard]] HRESULT Unregister(RegistrationScope scope) noexcept;

}  // namespace quill::com

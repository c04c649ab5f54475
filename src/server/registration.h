// Writes and removes the registry entries of the class and its type library.
#pragma once

#include "server/class_registration.h"

namespace quill::com {

// Registers this library's file. On failure everything written is removed as Unregister does.
[[nodiscard]] HRESULT Register(RegistrationScope scope) noexcept;

// Removes what Register writes; entries that are not there are no failure, and those that name
// another file stay, as does what the library of the other bitness shares with them.
[[nodiscard]] HRESULT Unregister(RegistrationScope scope) noexcept;

}  // namespace quill::com

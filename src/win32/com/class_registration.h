// The registry entries by which a class of this module is found and created.
#pragma once

#include "support/text.h"
#include "win32/com/automation.h"

namespace quill::com {

enum class RegistrationScope { kMachine, kUser };

// What the command line of DllInstall asks for: "user" is the current user alone, without
// elevation.
[[nodiscard]] RegistrationScope ScopeOf(LPCWSTR command_line) noexcept;

// Where a scope's entries lie.
[[nodiscard]] HKEY RootOf(RegistrationScope scope) noexcept;

struct RegisteredClass {
  TextView prog_id;
  TextView name;  // for people
  CLSID id;
  const GUID* types = nullptr;  // its type library, where it has one
  WORD types_major = 0;
  WORD types_minor = 0;
};

[[nodiscard]] Text GuidText(REFGUID guid);

// Writes all entries of an in-process, apartment-threaded class. Throws and leaves what it had
// written.
void WriteClass(RegistrationScope scope, const RegisteredClass& registered);

// Removes what WriteClass writes; entries that are not there are no failure. Groups of entries that
// the user had none of before are removed with the last of them.
void RemoveClass(RegistrationScope scope, const RegisteredClass& registered);

// The identifier behind a programmatic name, as text, empty where there is none; writing an empty
// one removes the name.
[[nodiscard]] Text ReadProgId(RegistrationScope scope, TextView prog_id);
void WriteProgId(RegistrationScope scope, TextView prog_id, const Text& class_id);

// Removes a group of entries of the user's ("CLSID") that holds nothing.
void RemoveUsersGroupIfEmpty(TextView group);

}  // namespace quill::com

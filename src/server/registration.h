// The registry entries by which a class of this module, and the plug-in's type library, are found.
#pragma once

#include "com/automation.h"
#include "support/text.h"

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

// Removes what WriteClass writes; entries that are not there are no failure, and those of another
// file stay. The name stays while the class is registered for the other bitness. Groups of entries
// that the user had none of before are removed with the last of them.
void RemoveClass(RegistrationScope scope, const RegisteredClass& registered);

// The identifier behind a programmatic name, as text, empty where there is none; writing an empty
// one removes the name.
[[nodiscard]] Text ReadProgId(RegistrationScope scope, TextView prog_id);
void WriteProgId(RegistrationScope scope, TextView prog_id, const Text& class_id);

// Programs of the two bitnesses see classes, interfaces and their settings in places of their own;
// programmatic names and type libraries are the same for both.
enum class RegistryView { kOwn, kOther };

// Keys are given below the classes key. The value of the key itself as text, empty where there is
// none.
[[nodiscard]] Text ReadEntry(RegistrationScope scope, const Text& key,
                             RegistryView view = RegistryView::kOwn);
// A key that is not there is no failure.
void RemoveTree(RegistrationScope scope, const Text& key, RegistryView view = RegistryView::kOwn);
void RemoveIfEmpty(RegistrationScope scope, TextView key);

// Whether a registered file is another one than this module's; none is not.
[[nodiscard]] bool IsElsewhere(const Text& file);

// Registers this library's file. On failure everything written is removed as Unregister does.
[[nodiscard]] HRESULT Register(RegistrationScope scope) noexcept;

// Removes what Register writes; entries that are not there are no failure, and those that name
// another file stay, as does what the library of the other bitness shares with them.
[[nodiscard]] HRESULT Unregister(RegistrationScope scope) noexcept;

}  // namespace quill::com

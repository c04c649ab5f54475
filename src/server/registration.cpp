// Registers the plug-in's class and type library and withdraws them. The entries of a class are one
// list, which writing goes through; removing takes whole keys. The platform registers type
// libraries itself, but what it removes would be too much.
#include "server/registration.h"

#include <cwchar>
#include <vector>

#include "com/bstr.h"
#include "com/com_error.h"
#include "com/com_ptr.h"
#include "com/identifiers.h"
#include "support/compiler.h"
#include "support/runtime_error.h"
#include "win32/owned.h"
#include "win32/system_services.h"
#include "win32/win32_file_system.h"

// Of Windows Vista and later; the cross compilers' headers have only what is for the machine.
#ifdef QUILL_HEADERS_ARE_SHORT
extern "C" {
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* help_folder);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID library, WORD major, WORD minor, LCID locale,
                                        SYSKIND system);
}
#endif

namespace quill::com {
namespace {

// Below one of two roots. HKEY_CLASSES_ROOT shows both together, and what is written there may land
// in either.
constexpr TextView kClassesKey = u"Software\\Classes\\";

// For the registry's functions, which answer with the system's error numbers.
void ThrowUnlessDone(LSTATUS status) {
  ThrowIfFailed(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

struct Entry {
  Text key;       // below the classes key
  TextView name;  // empty: the key's own value
  Text value;
};

Text ClassKey(REFCLSID id) {
  return Concat({u"CLSID\\", GuidText(id)});
}

std::vector<Entry> EntriesOf(const RegisteredClass& registered) {
  const Text class_key = ClassKey(registered.id);
  const Text server_key = Concat({class_key, u"\\InprocServer32"});
  std::vector<Entry> entries = {
      {Text(registered.prog_id), {}, Text(registered.name)},
      {Concat({registered.prog_id, u"\\CLSID"}), {}, GuidText(registered.id)},
      {class_key, {}, Text(registered.name)},
      {server_key, {}, win32::ThisModulePath()},
      // The thread that creates an object is the one that calls it.
      {server_key, u"ThreadingModel", u"Apartment"},
      {Concat({class_key, u"\\ProgID"}), {}, Text(registered.prog_id)},
      {Concat({class_key, u"\\Programmable"}), {}, {}},
  };
  if (registered.types != nullptr) {
    entries.push_back({Concat({class_key, u"\\TypeLib"}), {}, GuidText(*registered.types)});
    entries.push_back(
        {Concat({class_key, u"\\Version"}),
         {},
         Concat({Decimal(registered.types_major), u".", Decimal(registered.types_minor)})});
  }
  return entries;
}

void Write(HKEY root, const Entry& entry) {
  const Text path = Concat({kClassesKey, entry.key});
  const Text name(entry.name);
  // Makes the key where there is none.
  ThrowUnlessDone(::RegSetKeyValueW(
      root, WideOf(path), name.empty() ? nullptr : WideOf(name), REG_SZ, entry.value.c_str(),
      static_cast<DWORD>((entry.value.size() + 1) * sizeof(char16_t))));
}

// What a view adds to the rights that a key is opened with. A system of 32 bits has one view only.
REGSAM FlagOf(RegistryView view) noexcept {
  if (view == RegistryView::kOwn) return 0;
  return sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
}

// Null: there is no such key. `path` is a full one.
win32::Owned<HKEY> OpenKey(RegistrationScope scope, const Text& path, REGSAM rights,
                           RegistryView view) {
  HKEY opened = nullptr;
  const LSTATUS status =
      ::RegOpenKeyExW(RootOf(scope), WideOf(path), 0, rights | FlagOf(view), &opened);
  if (status != ERROR_FILE_NOT_FOUND) ThrowUnlessDone(status);
  return win32::Owned<HKEY>(opened);
}

}  // namespace

RegistrationScope ScopeOf(LPCWSTR command_line) noexcept {
  const bool for_user = command_line != nullptr && _wcsicmp(command_line, L"user") == 0;
  return for_user ? RegistrationScope::kUser : RegistrationScope::kMachine;
}

HKEY RootOf(RegistrationScope scope) noexcept {
  return scope == RegistrationScope::kMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

Text GuidText(REFGUID guid) {
  wchar_t text[40];
  // 38 characters and a zero, which the length counts.
  const int length = ::StringFromGUID2(guid, text, 40);
  return Text(reinterpret_cast<const char16_t*>(text), static_cast<std::size_t>(length - 1));
}

void WriteClass(RegistrationScope scope, const RegisteredClass& registered) {
  for (const Entry& entry : EntriesOf(registered)) Write(RootOf(scope), entry);
}

void RemoveClass(RegistrationScope scope, const RegisteredClass& registered) {
  const Text class_key = ClassKey(registered.id);
  const Text server_key = Concat({class_key, u"\\InprocServer32"});
  // Somebody else's copy has been registered since; its entries stay.
  if (IsElsewhere(ReadEntry(scope, server_key))) return;
  RemoveTree(scope, class_key);
  if (scope == RegistrationScope::kUser) RemoveIfEmpty(scope, u"CLSID");
  // Both bitnesses share the name.
  const Text named = ReadProgId(scope, registered.prog_id);
  if (ReadEntry(scope, server_key, RegistryView::kOther).empty() &&
      (named.empty() || named == GuidText(registered.id))) {
    RemoveTree(scope, Text(registered.prog_id));
  }
}

Text ReadProgId(RegistrationScope scope, TextView prog_id) {
  return ReadEntry(scope, Concat({prog_id, u"\\CLSID"}));
}

void WriteProgId(RegistrationScope scope, TextView prog_id, const Text& class_id) {
  const Text key = Concat({prog_id, u"\\CLSID"});
  if (!class_id.empty()) return Write(RootOf(scope), {key, {}, class_id});
  RemoveTree(scope, key);
  RemoveIfEmpty(scope, prog_id);
}

Text ReadEntry(RegistrationScope scope, const Text& key, RegistryView view) {
  const auto opened = OpenKey(scope, Concat({kClassesKey, key}), KEY_QUERY_VALUE, view);
  // Longer than the longest path.
  Text value(32768, u'\0');
  auto size = static_cast<DWORD>(value.size() * sizeof(char16_t));
  if (opened == nullptr || ::RegGetValueW(opened.get(), nullptr, nullptr, RRF_RT_REG_SZ, nullptr,
                                          value.data(), &size) != ERROR_SUCCESS) {
    return {};
  }
  return value.c_str();  // NOLINT(readability-redundant-string-cstr): without the terminator
}

void RemoveTree(RegistrationScope scope, const Text& key, RegistryView view) {
  const Text path = Concat({kClassesKey, key});
  const auto opened =
      OpenKey(scope, path, DELETE | KEY_ENUMERATE_SUB_KEYS | KEY_QUERY_VALUE | KEY_SET_VALUE, view);
  if (opened == nullptr) return;
  // Given the path, it would look in this program's own view only.
  ThrowUnlessDone(::RegDeleteTreeW(opened.get(), nullptr));
  ThrowUnlessDone(::RegDeleteKeyExW(RootOf(scope), WideOf(path), FlagOf(view), 0));
}

void RemoveIfEmpty(RegistrationScope scope, TextView key) {
  const Text path = Concat({kClassesKey, key});
  const auto opened = OpenKey(scope, path, KEY_QUERY_VALUE, RegistryView::kOwn);
  DWORD keys = 0;
  DWORD values = 0;
  if (opened != nullptr &&
      ::RegQueryInfoKeyW(opened.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                         nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
      keys == 0 && values == 0) {
    (void)::RegDeleteKeyW(RootOf(scope), WideOf(path));
  }
}

bool IsElsewhere(const Text& file) {
  if (file.empty()) return false;
  BY_HANDLE_FILE_INFORMATION named{};
  BY_HANDLE_FILE_INFORMATION own{};
  const auto self = win32::OpenExisting(win32::ThisModulePath());
  try {
    // Paths may name one file in many ways; its number on its volume does not.
    return !::GetFileInformationByHandle(win32::OpenExisting(file).get(), &named) ||
           !::GetFileInformationByHandle(self.get(), &own) ||
           named.dwVolumeSerialNumber != own.dwVolumeSerialNumber ||
           named.nFileIndexHigh != own.nFileIndexHigh || named.nFileIndexLow != own.nFileIndexLow;
  } catch (const RuntimeError&) {
    return true;
  }
}

// The plug-in's class and type library.

namespace {

constexpr RegisteredClass kPluginClass = {kProgId,     kClassName,    kClassId,
                                          &kLibraryId, kLibraryMajor, kLibraryMinor};

void RegisterTypes(RegistrationScope scope) {
  const Text path = win32::ThisModulePath();
  ComPtr<ITypeLib> types;
  ThrowIfFailed(::LoadTypeLibEx(WideOf(path), REGKIND_NONE, types.Receive()));
  auto* wide = const_cast<LPOLESTR>(WideOf(path));
  ThrowIfFailed(scope == RegistrationScope::kMachine
                    ? ::RegisterTypeLib(types.get(), wide, nullptr)
                    : ::RegisterTypeLibForUser(types.get(), wide, nullptr));
}

// The system's own function also removes the interface that the library of the other bitness needs.
void UnregisterTypes(RegistrationScope scope) {
  constexpr bool kIs64 = sizeof(void*) == 8;
  const Text types = Concat({u"TypeLib\\", GuidText(kLibraryId)});
  const Text version = Concat({types, u"\\", Decimal(kLibraryMajor), u".", Decimal(kLibraryMinor)});
  const Text file = Concat({version, kIs64 ? u"\\0\\win64" : u"\\0\\win32"});
  const Text interface_key = Concat({u"Interface\\", GuidText(kInterfaceId)});
  if (IsElsewhere(ReadEntry(scope, file))) return;
  const bool is_last =
      ReadEntry(scope, Concat({version, kIs64 ? u"\\0\\win32" : u"\\0\\win64"})).empty();
  // Wine writes those of the user among the machine's, where only Wine finds them.
  if (scope == RegistrationScope::kUser && is_last) {
    (void)::UnRegisterTypeLibForUser(kLibraryId, kLibraryMajor, kLibraryMinor, 0,
                                     kIs64 ? SYS_WIN64 : SYS_WIN32);
  }
  RemoveTree(scope, file);
  RemoveTree(scope, interface_key);
  if (is_last) {
    RemoveTree(scope, version);
    RemoveIfEmpty(scope, types);
    RemoveTree(scope, interface_key, RegistryView::kOther);
  }
  if (scope == RegistrationScope::kUser) {
    for (const TextView group : {u"TypeLib", u"Interface"}) RemoveIfEmpty(scope, group);
  }
}

}  // namespace

HRESULT Register(RegistrationScope scope) noexcept {
  const HRESULT result = Guarded(IID_IUnknown, [&] {
    WriteClass(scope, kPluginClass);
    RegisterTypes(scope);
    return S_OK;
  });
  // Half a registration would offer a class that cannot be used.
  if (FAILED(result)) (void)Unregister(scope);
  return result;
}

HRESULT Unregister(RegistrationScope scope) noexcept {
  // One that cannot be removed does not keep the other.
  const auto attempt = [](const auto& remove) {
    return Guarded(IID_IUnknown, [&] { return remove(), S_OK; });
  };
  const HRESULT without_class = attempt([&] { RemoveClass(scope, kPluginClass); });
  const HRESULT without_types = attempt([&] { UnregisterTypes(scope); });
  return FAILED(without_class) ? without_class : without_types;
}

}  // namespace quill::com

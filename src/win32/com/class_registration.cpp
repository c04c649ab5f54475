#include "win32/com/class_registration.h"

#include <cwchar>
#include <vector>

#include "support/runtime_error.h"
#include "win32/com/bstr.h"
#include "win32/com/com_error.h"
#include "win32/win32_process_paths.h"

namespace quill::com {
namespace {

constexpr TextView kClassesKey = u"Software\\Classes\\";

class Key {
 public:
  explicit Key(HKEY key) noexcept : key_(key) {}
  ~Key() { ::RegCloseKey(key_); }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  [[nodiscard]] HKEY get() const noexcept { return key_; }

 private:
  HKEY key_;
};

void ThrowIfFailed(LSTATUS status) {
  if (status != ERROR_SUCCESS) throw ErrorOf(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
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
  HKEY made = nullptr;
  ThrowIfFailed(::RegCreateKeyExW(root, WideOf(path), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                  KEY_WRITE, nullptr, &made, nullptr));
  const Key key(made);
  const Text name(entry.name);
  ThrowIfFailed(::RegSetValueExW(key.get(), name.empty() ? nullptr : WideOf(name), 0, REG_SZ,
                                 reinterpret_cast<const BYTE*>(entry.value.c_str()),
                                 static_cast<DWORD>((entry.value.size() + 1) * sizeof(char16_t))));
}

void RemoveTree(HKEY root, TextView below_classes) {
  const Text path = Concat({kClassesKey, below_classes});
  const LSTATUS status = ::RegDeleteTreeW(root, WideOf(path));
  if (status != ERROR_FILE_NOT_FOUND) ThrowIfFailed(status);
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
  const int length = ::StringFromGUID2(guid, text, 40);
  return Text(reinterpret_cast<const char16_t*>(text), static_cast<std::size_t>(length - 1));
}

void WriteClass(RegistrationScope scope, const RegisteredClass& registered) {
  for (const Entry& entry : EntriesOf(registered)) Write(RootOf(scope), entry);
}

void RemoveClass(RegistrationScope scope, const RegisteredClass& registered) {
  RemoveTree(RootOf(scope), ClassKey(registered.id));
  RemoveTree(RootOf(scope), registered.prog_id);
  if (scope == RegistrationScope::kUser) RemoveUsersGroupIfEmpty(u"CLSID");
}

Text ReadProgId(RegistrationScope scope, TextView prog_id) {
  const Text path = Concat({kClassesKey, prog_id, u"\\CLSID"});
  wchar_t text[64] = L"";
  DWORD size = sizeof text;
  if (::RegGetValueW(RootOf(scope), WideOf(path), nullptr, RRF_RT_REG_SZ, nullptr, text, &size) !=
      ERROR_SUCCESS) {
    return {};
  }
  return reinterpret_cast<const char16_t*>(text);
}

void WriteProgId(RegistrationScope scope, TextView prog_id, const Text& class_id) {
  if (class_id.empty()) return RemoveTree(RootOf(scope), prog_id);
  Write(RootOf(scope), {Concat({prog_id, u"\\CLSID"}), {}, class_id});
}

void RemoveUsersGroupIfEmpty(TextView group) {
  const Text path = Concat({kClassesKey, group});
  HKEY opened = nullptr;
  if (::RegOpenKeyExW(HKEY_CURRENT_USER, WideOf(path), 0, KEY_READ, &opened) != ERROR_SUCCESS) {
    return;
  }
  DWORD keys = 0;
  DWORD values = 0;
  const LSTATUS status = ::RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, &keys, nullptr,
                                            nullptr, &values, nullptr, nullptr, nullptr, nullptr);
  ::RegCloseKey(opened);
  if (status == ERROR_SUCCESS && keys == 0 && values == 0) {
    (void)::RegDeleteKeyW(HKEY_CURRENT_USER, WideOf(path));
  }
}

}  // namespace quill::com

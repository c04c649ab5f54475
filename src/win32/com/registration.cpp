#include "win32/com/registration.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "support/runtime_error.h"
#include "win32/com/automation.h"
#include "win32/com/bstr.h"
#include "win32/com/com_error.h"
#include "win32/com/com_ptr.h"
#include "win32/com/identifiers.h"
#include "win32/com/library.h"

// Part of the platform, missing from the compiler's headers.
extern "C" {
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* help_folder);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID library, WORD major, WORD minor, LCID locale,
                                        SYSKIND system);
}

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

HKEY RootOf(RegistrationScope scope) noexcept {
  return scope == RegistrationScope::kMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

Text GuidText(REFGUID guid) {
  wchar_t text[40];
  const int length = ::StringFromGUID2(guid, text, 40);
  return Text(reinterpret_cast<const char16_t*>(text), static_cast<std::size_t>(length - 1));
}

void ThrowIfFailed(LSTATUS status) {
  if (status != ERROR_SUCCESS) throw ErrorOf(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

struct Entry {
  Text key;   // below the classes key
  Text name;  // empty: the key's own value
  Text value;
};

Text ClassKey() {
  return Concat({u"CLSID\\", GuidText(kClassId)});
}

std::vector<Entry> Entries() {
  const Text class_id = GuidText(kClassId);
  const Text class_key = ClassKey();
  const Text server_key = Concat({class_key, u"\\InprocServer32"});
  return {
      {Text(kProgId), {}, Text(kClassName)},
      {Concat({kProgId, u"\\CLSID"}), {}, class_id},
      {class_key, {}, Text(kClassName)},
      {server_key, {}, Library::Get().FilePath()},
      {server_key, u"ThreadingModel", u"Apartment"},
      {Concat({class_key, u"\\ProgID"}), {}, Text(kProgId)},
      {Concat({class_key, u"\\TypeLib"}), {}, GuidText(kLibraryId)},
      {Concat({class_key, u"\\Version"}), {}, u"1.0"},
      {Concat({class_key, u"\\Programmable"}), {}, {}},
  };
}

void Write(HKEY root, const Entry& entry) {
  const Text path = Concat({kClassesKey, entry.key});
  HKEY made = nullptr;
  ThrowIfFailed(::RegCreateKeyExW(root, WideOf(path), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                  KEY_WRITE, nullptr, &made, nullptr));
  const Key key(made);
  ThrowIfFailed(::RegSetValueExW(key.get(), entry.name.empty() ? nullptr : WideOf(entry.name), 0,
                                 REG_SZ, reinterpret_cast<const BYTE*>(entry.value.c_str()),
                                 static_cast<DWORD>((entry.value.size() + 1) * sizeof(char16_t))));
}

void RemoveTree(HKEY root, const Text& below_classes) {
  const Text path = Concat({kClassesKey, below_classes});
  const LSTATUS status = ::RegDeleteTreeW(root, WideOf(path));
  if (status != ERROR_FILE_NOT_FOUND) ThrowIfFailed(status);
}

void RegisterTypes(RegistrationScope scope) {
  const Text path = Library::Get().FilePath();
  ComPtr<ITypeLib> types;
  HRESULT result = ::LoadTypeLibEx(WideOf(path), REGKIND_NONE, types.Receive());
  if (SUCCEEDED(result)) {
    LPOLESTR wide = const_cast<LPOLESTR>(WideOf(path));
    result = scope == RegistrationScope::kMachine
                 ? ::RegisterTypeLib(types.get(), wide, nullptr)
                 : ::RegisterTypeLibForUser(types.get(), wide, nullptr);
  }
  if (FAILED(result)) throw ErrorOf(result);
}

void UnregisterTypes(RegistrationScope scope) {
  constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
  const HRESULT result =
      scope == RegistrationScope::kMachine
          ? ::UnRegisterTypeLib(kLibraryId, kLibraryMajor, kLibraryMinor, 0, kSystem)
          : ::UnRegisterTypeLibForUser(kLibraryId, kLibraryMajor, kLibraryMinor, 0, kSystem);
  // Systems say in different ways that it is not there.
  constexpr HRESULT kNotThere[] = {TYPE_E_REGISTRYACCESS, TYPE_E_LIBNOTREGISTERED, E_INVALIDARG};
  if (FAILED(result) && std::ranges::find(kNotThere, result) == std::end(kNotThere)) {
    throw ErrorOf(result);
  }
}

// The user's entries may have been the first of their kind.
void RemoveIfEmpty(HKEY root, TextView below_classes) {
  const Text path = Concat({kClassesKey, below_classes});
  HKEY opened = nullptr;
  if (::RegOpenKeyExW(root, WideOf(path), 0, KEY_READ, &opened) != ERROR_SUCCESS) return;
  DWORD keys = 0;
  DWORD values = 0;
  const LSTATUS status = ::RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, &keys, nullptr,
                                            nullptr, &values, nullptr, nullptr, nullptr, nullptr);
  ::RegCloseKey(opened);
  if (status == ERROR_SUCCESS && keys == 0 && values == 0) {
    (void)::RegDeleteKeyW(root, WideOf(path));
  }
}

void Remove(RegistrationScope scope) {
  UnregisterTypes(scope);
  RemoveTree(RootOf(scope), ClassKey());
  RemoveTree(RootOf(scope), Text(kProgId));
  if (scope == RegistrationScope::kUser) {
    for (const TextView group : {u"CLSID", u"TypeLib", u"Interface"}) {
      RemoveIfEmpty(HKEY_CURRENT_USER, group);
    }
  }
}

}  // namespace

HRESULT Register(RegistrationScope scope) noexcept {
  const HRESULT result = Guarded(IID_IUnknown, [&] {
    for (const Entry& entry : Entries()) Write(RootOf(scope), entry);
    RegisterTypes(scope);
    return S_OK;
  });
  if (FAILED(result)) (void)Unregister(scope);
  return result;
}

HRESULT Unregister(RegistrationScope scope) noexcept {
  return Guarded(IID_IUnknown, [&] {
    Remove(scope);
    return S_OK;
  });
}

}  // namespace quill::com

// Registering and unregistering, for the machine and for the user, leaves the registry as it was.
#include <map>

#include "tests/win32/com/plugin_bench.h"

namespace quill::com {
namespace {

using Values = std::map<Text, Text>;  // by key and name, with the value's bytes

void Collect(HKEY key, const Text& path, Values& values) {
  values[path] = {};
  for (DWORD i = 0;; ++i) {
    wchar_t name[512];
    DWORD length = 512;
    BYTE data[4096];
    DWORD size = sizeof data;
    DWORD type = 0;
    const LSTATUS status = ::RegEnumValueW(key, i, name, &length, nullptr, &type, data, &size);
    if (status == ERROR_NO_MORE_ITEMS) break;
    const Text place = Concat({path, u"\\@", reinterpret_cast<const char16_t*>(name)});
    values[place] = Concat({Decimal(type), u":",
                            TextView(reinterpret_cast<const char16_t*>(data),
                                     status == ERROR_SUCCESS ? size / sizeof(char16_t) : 0)});
  }
  for (DWORD i = 0;; ++i) {
    wchar_t name[512];
    DWORD length = 512;
    if (::RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      break;
    }
    HKEY inner = nullptr;
    if (::RegOpenKeyExW(key, name, 0, KEY_READ | KEY_WOW64_64KEY, &inner) != ERROR_SUCCESS) {
      continue;
    }
    Collect(inner, Concat({path, u"\\", reinterpret_cast<const char16_t*>(name)}), values);
    ::RegCloseKey(inner);
  }
}

// Both views of the classes of the machine and of the user.
Values Registry() {
  Values values;
  struct Place {
    HKEY root;
    const wchar_t* path;
    const char16_t* shown;
  };
  constexpr const wchar_t* kClasses = L"Software\\Classes";
  const Place places[] = {{HKEY_LOCAL_MACHINE, kClasses, u"machine"},
                          {HKEY_LOCAL_MACHINE, L"Software\\Wow6432Node\\Classes", u"machine 32"},
                          {HKEY_CURRENT_USER, kClasses, u"user"}};
  for (const Place& place : places) {
    HKEY key = nullptr;
    if (::RegOpenKeyExW(place.root, place.path, 0, KEY_READ | KEY_WOW64_64KEY, &key) !=
        ERROR_SUCCESS) {
      continue;
    }
    Collect(key, place.shown, values);
    ::RegCloseKey(key);
  }
  return values;
}

// The keys and values that one has and the other has not.
std::string Difference(const Values& before, const Values& after) {
  std::string told;
  for (const auto& [place, value] : after) {
    const auto found = before.find(place);
    if (found == before.end()) told += "+ " + ToUtf8(place) + "\n";
    if (found != before.end() && found->second != value) told += "! " + ToUtf8(place) + "\n";
  }
  for (const auto& [place, value] : before) {
    if (!after.contains(place)) told += "- " + ToUtf8(place) + "\n";
  }
  return told;
}

Text ValueAt(HKEY root, const Text& key, const wchar_t* name = nullptr) {
  wchar_t text[1024] = L"";
  DWORD size = sizeof text;
  const Text path = Concat({u"Software\\Classes\\", key});
  if (::RegGetValueW(root, WideOf(path), name, RRF_RT_REG_SZ, nullptr, text, &size) !=
      ERROR_SUCCESS) {
    return u"(none)";
  }
  return reinterpret_cast<const char16_t*>(text);
}

class Registration : public PluginBench {
 protected:
  HRESULT Run(const char* entry) const {
    return library->Entry<HRESULT(STDAPICALLTYPE*)()>(entry)();
  }
  HRESULT Install(BOOL install, LPCWSTR command_line) const {
    return library->Entry<HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR)>("DllInstall")(install,
                                                                                 command_line);
  }
  // Every user of Windows has it; a fresh Wine prefix has not.
  static void EnsureUsersClasses() {
    HKEY key = nullptr;
    ASSERT_EQ(::RegCreateKeyW(HKEY_CURRENT_USER, L"Software\\Classes", &key), ERROR_SUCCESS);
    ::RegCloseKey(key);
  }
  static void ExpectEntries(HKEY root) {
    const Text class_key = u"CLSID\\{5E08C6B1-D9F2-4773-8A4C-1B62F50E93AD}";
    EXPECT_EQ(ValueAt(root, u"kvrrcBHDGS.clsPlugin\\CLSID"),
              u"{5E08C6B1-D9F2-4773-8A4C-1B62F50E93AD}");
    EXPECT_EQ(ValueAt(root, Concat({class_key, u"\\ProgID"})), u"kvrrcBHDGS.clsPlugin");
    EXPECT_EQ(ValueAt(root, Concat({class_key, u"\\TypeLib"})),
              u"{7C3B9E52-41D6-4A0B-9D5E-6F2A8C10B7E1}");
    const Text server_key = Concat({class_key, u"\\InprocServer32"});
    EXPECT_EQ(ValueAt(root, server_key, L"ThreadingModel"), u"Apartment");
    const Text file = ToLower(ReplaceAll(ValueAt(root, server_key), u"/", u"\\"));
    EXPECT_EQ(file, ToLower(ReplaceAll(LoadedLibrary::Path(), u"/", u"\\")));
  }
  // The type library lies under the version and the kind of system it is for.
  static void ExpectTypes(HKEY root) {
    EXPECT_NE(ValueAt(root, Concat({u"TypeLib\\{7C3B9E52-41D6-4A0B-9D5E-6F2A8C10B7E1}\\1.0\\0\\",
                                    sizeof(void*) == 8 ? u"win64" : u"win32"})),
              u"(none)");
  }
};

TEST_F(Registration, ForTheMachineMakesTheClassCreatableByNameAndLeavesNothing) {
  OfferKits();
  const Values before = Registry();
  ASSERT_GT(before.size(), 100u) << "the registry cannot be read";
  for (int round = 0; round < 2; ++round) {
    ASSERT_EQ(Run("DllRegisterServer"), S_OK);
    ASSERT_EQ(Run("DllRegisterServer"), S_OK) << "again over itself";
    ExpectEntries(HKEY_LOCAL_MACHINE);
    ExpectTypes(HKEY_LOCAL_MACHINE);
    ComPtr<ITypeLib> types;
    EXPECT_EQ(::LoadRegTypeLib(kLibraryId, 1, 0, LOCALE_NEUTRAL, types.Receive()), S_OK);
    types.Reset();

    CLSID id{};
    ASSERT_EQ(::CLSIDFromProgID(L"kvrrcBHDGS.clsPlugin", &id), S_OK);
    EXPECT_TRUE(IsEqualCLSID(id, kClassId));
    ComPtr<IPlugin> plugin;
    ASSERT_EQ(
        ::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, kInterfaceId, plugin.ReceiveVoid()),
        S_OK);
    Bstr version;
    EXPECT_EQ(plugin->dllVersion(nullptr, version.address()), S_OK);
    EXPECT_EQ(version.view(), u"1.1.2");
    plugin.Reset();
    ::CoFreeUnusedLibraries();

    ASSERT_EQ(Run("DllUnregisterServer"), S_OK);
    EXPECT_EQ(Difference(before, Registry()), "");
    EXPECT_EQ(Run("DllUnregisterServer"), S_OK) << "nothing left to remove is no failure";
    EXPECT_EQ(Difference(before, Registry()), "");
  }
}

TEST_F(Registration, ForTheUserTouchesTheUsersEntriesOnly) {
  EnsureUsersClasses();
  const Values before = Registry();
  ASSERT_EQ(Install(TRUE, L"USER"), S_OK);
  ExpectEntries(HKEY_CURRENT_USER);
  EXPECT_EQ(ValueAt(HKEY_LOCAL_MACHINE, u"kvrrcBHDGS.clsPlugin"), u"(none)");
  EXPECT_EQ(ValueAt(HKEY_LOCAL_MACHINE, u"CLSID\\{5E08C6B1-D9F2-4773-8A4C-1B62F50E93AD}"),
            u"(none)");
  ASSERT_EQ(Install(FALSE, L"user"), S_OK);
  EXPECT_EQ(Difference(before, Registry()), "");

  ASSERT_EQ(Install(TRUE, nullptr), S_OK);
  ExpectEntries(HKEY_LOCAL_MACHINE);
  ASSERT_EQ(Install(FALSE, L""), S_OK);
  EXPECT_EQ(Difference(before, Registry()), "");
}

TEST_F(Registration, LeavesOtherPeoplesEntriesBesideItsOwn) {
  const auto put = [](const wchar_t* key) {
    EXPECT_EQ(::RegSetKeyValueW(HKEY_CURRENT_USER, key, L"kept", REG_SZ, L"yes", 8), ERROR_SUCCESS);
  };
  put(L"Software\\Classes\\CLSID\\{01234567-0000-0000-0000-000000000000}");
  put(L"Software\\Classes\\TypeLib\\{01234567-0000-0000-0000-000000000000}");
  const Values before = Registry();
  ASSERT_EQ(Install(TRUE, L"user"), S_OK);
  ASSERT_EQ(Install(FALSE, L"user"), S_OK);
  EXPECT_EQ(Difference(before, Registry()), "");
  ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Classes\\CLSID");
  ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Classes\\TypeLib");
}

}  // namespace
}  // namespace quill::com

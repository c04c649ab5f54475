// Registering and unregistering, for the machine and for the user, leaves the registry as it was.
#include <algorithm>
#include <iterator>
#include <map>

#include "com/late_bound.h"
#include "server/registration.h"
#include "tests/server/plugin_bench.h"

namespace quill::com {
namespace {

using Values = std::map<Text, Text>;  // by key and name, with the value's bytes

void Collect(HKEY root, const wchar_t* key_path, const Text& path, Values& values) {
  HKEY key = nullptr;
  if (::RegOpenKeyExW(root, key_path, 0, KEY_READ | KEY_WOW64_64KEY, &key) != ERROR_SUCCESS) return;
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
    Collect(key, name, Concat({path, u"\\", reinterpret_cast<const char16_t*>(name)}), values);
  }
  ::RegCloseKey(key);
}

// Both views of the classes of the machine and of the user.
Values Registry() {
  Values values;
  Collect(HKEY_LOCAL_MACHINE, L"Software\\Classes", u"machine", values);
  Collect(HKEY_LOCAL_MACHINE, L"Software\\Wow6432Node\\Classes", u"machine 32", values);
  Collect(HKEY_CURRENT_USER, L"Software\\Classes", u"user", values);
  return values;
}

// The keys and values that one has and the other has not, or has otherwise.
std::string Difference(const Values& before, const Values& after) {
  std::vector<Values::value_type> entries;
  std::ranges::set_symmetric_difference(before, after, std::back_inserter(entries));
  std::string told;
  for (const auto& [place, value] : entries) told += ToUtf8(place) + "\n";
  return told;
}

Text ValueAt(HKEY root, const Text& key, const wchar_t* name = nullptr) {
  wchar_t text[1024] = L"";
  DWORD size = sizeof text;
  const Text path = Concat({u"Software\\Classes\\", key});
  if (::RegGetValueW(root, WideOf(path), name, RRF_RT_REG_SZ | RRF_NOEXPAND, nullptr, text,
                     &size) != ERROR_SUCCESS) {
    return u"(none)";
  }
  return reinterpret_cast<const char16_t*>(text);
}

const Text kServerKey = u"CLSID\\{5E08C6B1-D9F2-4773-8A4C-1B62F50E93AD}\\InprocServer32";
const Text kInterfaceKey = u"Interface\\{A15D7F30-2C84-4E6B-B3A9-0D7E51C2F846}";
const Text kTypesKey = u"TypeLib\\{7C3B9E52-41D6-4A0B-9D5E-6F2A8C10B7E1}\\1.0\\0\\";
const Text kOwnTypesKey = kTypesKey + (sizeof(void*) == 8 ? u"win64" : u"win32");
const Text kOtherTypesKey = kTypesKey + (sizeof(void*) == 8 ? u"win32" : u"win64");
constexpr REGSAM kOtherView = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

void Put(HKEY root, const Text& key, const Text& value, REGSAM view = 0) {
  HKEY made = nullptr;
  ASSERT_EQ(::RegCreateKeyExW(root, WideOf(Concat({u"Software\\Classes\\", key})), 0, nullptr, 0,
                              KEY_WRITE | view, nullptr, &made, nullptr),
            ERROR_SUCCESS);
  EXPECT_EQ(::RegSetValueExW(made, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                             static_cast<DWORD>((value.size() + 1) * sizeof(char16_t))),
            ERROR_SUCCESS);
  ::RegCloseKey(made);
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
  void SetUp() override {
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
    EXPECT_EQ(file, ToLower(ReplaceAll(TestedLibrary::Path(), u"/", u"\\")));
  }
};

TEST_F(Registration, ForTheMachineMakesTheClassCreatableByNameAndLeavesNothing) {
  OfferKits();
  const Values before = Registry();
  ASSERT_GT(before.size(), 100u) << "the registry cannot be read";
  ASSERT_EQ(Run("DllRegisterServer"), S_OK);
  ASSERT_EQ(Run("DllRegisterServer"), S_OK) << "again over itself";
  ExpectEntries(HKEY_LOCAL_MACHINE);
  EXPECT_NE(ValueAt(HKEY_LOCAL_MACHINE, kOwnTypesKey), u"(none)");
  ComPtr<ITypeLib> types;
  EXPECT_EQ(::LoadRegTypeLib(kLibraryId, 1, 0, LOCALE_NEUTRAL, types.Receive()), S_OK);
  types.Reset();
  EXPECT_EQ(LateBound::Create(u"kvrrcBHDGS.clsPlugin").Find(u"dllVersion"), 1);
  ::CoFreeUnusedLibraries();

  for (const char* round : {"first", "with nothing left to remove"}) {
    ASSERT_EQ(Run("DllUnregisterServer"), S_OK) << round;
    EXPECT_EQ(Difference(before, Registry()), "") << round;
  }
}

TEST_F(Registration, ForTheUserTouchesTheUsersEntriesOnlyAndLeavesOthers) {
  const Values at_first = Registry();
  const Text others[] = {u"CLSID\\{01234567-0000-0000-0000-000000000000}",
                         u"TypeLib\\{01234567-0000-0000-0000-000000000000}", u"Interface"};
  for (const Text& key : others) Put(HKEY_CURRENT_USER, key, u"kept");
  const Values before = Registry();
  ASSERT_EQ(Install(TRUE, L"USER"), S_OK);
  ExpectEntries(HKEY_CURRENT_USER);
  EXPECT_EQ(ValueAt(HKEY_LOCAL_MACHINE, u"kvrrcBHDGS.clsPlugin"), u"(none)");
  EXPECT_EQ(ValueAt(HKEY_LOCAL_MACHINE, kServerKey), u"(none)");
  ASSERT_EQ(Install(FALSE, L"user"), S_OK);
  EXPECT_EQ(Difference(before, Registry()), "");
  for (const Text& key : others) {
    RemoveTree(RegistrationScope::kUser, key);
    RemoveIfEmpty(RegistrationScope::kUser, key.substr(0, key.find(u'\\')));
  }
  ASSERT_EQ(Install(TRUE, nullptr), S_OK);
  ExpectEntries(HKEY_LOCAL_MACHINE);
  ASSERT_EQ(Install(FALSE, L""), S_OK);
  EXPECT_EQ(Difference(at_first, Registry()), "");
}

TEST_F(Registration, LeavesWhatPointsElsewhere) {
  const Values before = Registry();
  ASSERT_EQ(Run("DllRegisterServer"), S_OK);
  for (const char16_t* const file :
       {u"C:\\windows\\system32\\ole32.dll", u"C:\\gone\\kvrrcBHDGS.dll"}) {
    for (const Text& key : {kServerKey, kOwnTypesKey}) {
      Put(HKEY_LOCAL_MACHINE, key, file);
    }
    const Values registered = Registry();
    EXPECT_EQ(Run("DllUnregisterServer"), S_OK);
    EXPECT_EQ(Difference(registered, Registry()), "");
  }
  ASSERT_EQ(Run("DllRegisterServer"), S_OK);
  ASSERT_EQ(Run("DllUnregisterServer"), S_OK);
  EXPECT_EQ(Difference(before, Registry()), "");
}

// What the other bitness shares with this one, and what it has for itself.
TEST_F(Registration, LeavesTheOtherBitnessUsable) {
  const Values before = Registry();
  Put(HKEY_LOCAL_MACHINE, kServerKey, u"C:\\other\\kvrrcBHDGS.dll", kOtherView);
  Put(HKEY_LOCAL_MACHINE, kOtherTypesKey, u"C:\\other\\kvrrcBHDGS.dll");
  Put(HKEY_LOCAL_MACHINE, kInterfaceKey, u"_clsPlugin", kOtherView);
  Put(HKEY_LOCAL_MACHINE, u"kvrrcBHDGS.clsPlugin\\CLSID", GuidText(kClassId));
  const Values of_other = Registry();
  ASSERT_EQ(Run("DllRegisterServer"), S_OK);
  ASSERT_EQ(Run("DllUnregisterServer"), S_OK);
  const auto expect_others = [&](const Values& now) {
    for (const auto& entry : of_other)
      EXPECT_TRUE(now.contains(entry.first)) << ToUtf8(entry.first);
    EXPECT_EQ(ReadEntry(RegistrationScope::kMachine, kServerKey), u"");
    EXPECT_EQ(ReadEntry(RegistrationScope::kMachine, kInterfaceKey), u"");
    EXPECT_EQ(ReadEntry(RegistrationScope::kMachine, kOwnTypesKey), u"");
  };
  expect_others(Registry());

  // A key that goes at the next restart can hold none that stays: the type library is refused.
  const Text types = u"TypeLib\\{7C3B9E52-41D6-4A0B-9D5E-6F2A8C10B7E1}";
  RemoveTree(RegistrationScope::kMachine, types);
  HKEY key = nullptr;
  ASSERT_EQ(::RegCreateKeyExW(HKEY_LOCAL_MACHINE, WideOf(Concat({u"Software\\Classes\\", types})),
                              0, nullptr, REG_OPTION_VOLATILE, KEY_WRITE, nullptr, &key, nullptr),
            ERROR_SUCCESS);
  ::RegCloseKey(key);
  EXPECT_NE(Run("DllRegisterServer"), S_OK);
  EXPECT_EQ(ReadEntry(RegistrationScope::kMachine, kServerKey), u"") << "it was taken back";
  EXPECT_EQ(ReadProgId(RegistrationScope::kMachine, u"kvrrcBHDGS.clsPlugin"), GuidText(kClassId));

  RemoveTree(RegistrationScope::kMachine, types);
  RemoveTree(RegistrationScope::kMachine, kServerKey.substr(0, kServerKey.rfind(u'\\')),
             RegistryView::kOther);
  RemoveTree(RegistrationScope::kMachine, kInterfaceKey, RegistryView::kOther);
  ASSERT_EQ(Run("DllUnregisterServer"), S_OK);
  EXPECT_EQ(Difference(before, Registry()), "");
}

}  // namespace
}  // namespace quill::com

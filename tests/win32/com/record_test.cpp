// The information record and the type library in the file, against what the compiler makes of them.
#include <cstring>

#include "tests/win32/com/plugin_bench.h"

namespace quill::com {
namespace {

using Record = PluginBench;

struct Field {
  const char16_t* name;
  VARTYPE type;
  std::size_t offset;
};
constexpr Field kFields[] = {
    {u"Name", VT_BSTR, offsetof(PluginRecord, Name)},
    {u"File", VT_BSTR, offsetof(PluginRecord, File)},
    {u"Version", VT_BSTR, offsetof(PluginRecord, Version)},
    {u"Author", VT_BSTR, offsetof(PluginRecord, Author)},
    {u"Description", VT_BSTR, offsetof(PluginRecord, Description)},
    {u"Game", VT_VARIANT, offsetof(PluginRecord, Game)},
    {u"HasInterface", VT_BOOL, offsetof(PluginRecord, HasInterface)},
    {u"ProfileMenu", VT_BOOL, offsetof(PluginRecord, ProfileMenu)},
    {u"ServerMenu", VT_BOOL, offsetof(PluginRecord, ServerMenu)},
    {u"MainMenu", VT_BOOL, offsetof(PluginRecord, MainMenu)},
    {u"ProfileMenuItems", VT_VARIANT, offsetof(PluginRecord, ProfileMenuItems)},
    {u"ServerMenuItems", VT_VARIANT, offsetof(PluginRecord, ServerMenuItems)},
    {u"MainMenuItems", VT_VARIANT, offsetof(PluginRecord, MainMenuItems)},
    {u"MinRCVer", VT_BSTR, offsetof(PluginRecord, MinRCVer)},
    {u"MinMemKitVer", VT_BSTR, offsetof(PluginRecord, MinMemKitVer)},
    {u"MinFileKitVer", VT_BSTR, offsetof(PluginRecord, MinFileKitVer)},
    {u"MinKVRVer", VT_BSTR, offsetof(PluginRecord, MinKVRVer)},
    {u"MinRCCVer", VT_BSTR, offsetof(PluginRecord, MinRCCVer)},
};

ComPtr<ITypeLib> TypesInFile() {
  ComPtr<ITypeLib> types;
  EXPECT_EQ(::LoadTypeLibEx(WideOf(LoadedLibrary::Path()), REGKIND_NONE, types.Receive()), S_OK);
  return types;
}

ComPtr<IRecordInfo> RecordInFile() {
  ComPtr<ITypeInfo> type;
  EXPECT_EQ(TypesInFile()->GetTypeInfoOfGuid(kRecordId, type.Receive()), S_OK);
  ComPtr<IRecordInfo> info;
  EXPECT_EQ(::GetRecordInfoFromTypeInfo(type.get(), info.Receive()), S_OK);
  return info;
}

TEST_F(Record, IsLaidOutAsTheCompilerDoes) {
  const auto info = RecordInFile();
  ULONG size = 0;
  ASSERT_EQ(info->GetSize(&size), S_OK);
  EXPECT_EQ(size, sizeof(PluginRecord));
  Bstr name;
  ASSERT_EQ(info->GetName(name.address()), S_OK);
  EXPECT_EQ(name.view(), u"PLUGIN");

  std::vector<BSTR> names(std::size(kFields) + 1);
  ULONG count = static_cast<ULONG>(names.size());
  ASSERT_EQ(info->GetFieldNames(&count, names.data()), S_OK);
  ASSERT_EQ(count, std::size(kFields));
  const PluginRecord record{};
  for (std::size_t i = 0; i < std::size(kFields); ++i) {
    SCOPED_TRACE(ToUtf8(kFields[i].name));
    EXPECT_EQ(ViewOf(names[i]), kFields[i].name);
    VARIANT field{};
    void* array = nullptr;
    ASSERT_EQ(
        info->GetFieldNoCopy(const_cast<PluginRecord*>(&record),
                             reinterpret_cast<const wchar_t*>(kFields[i].name), &field, &array),
        S_OK);
    EXPECT_EQ(field.vt, VT_BYREF | kFields[i].type);
    EXPECT_EQ(static_cast<const char*>(field.byref) - reinterpret_cast<const char*>(&record),
              static_cast<std::ptrdiff_t>(kFields[i].offset));
    ::SysFreeString(names[i]);
  }
}

Text TextsIn(const VARIANT& value) {
  EXPECT_EQ(value.vt, VT_ARRAY | VT_BSTR);
  LONG lower = -1;
  LONG upper = -1;
  EXPECT_EQ(::SafeArrayGetLBound(value.parray, 1, &lower), S_OK);
  EXPECT_EQ(lower, 0);
  EXPECT_EQ(::SafeArrayGetUBound(value.parray, 1, &upper), S_OK);
  Text joined;
  for (LONG i = 0; i <= upper; ++i) joined += Concat({ElementText(value.parray, i), u";"});
  return joined;
}

void ExpectValues(const PluginRecord& record) {
  EXPECT_EQ(ViewOf(record.Name), u"Quillstart");
  EXPECT_EQ(ViewOf(record.File), u"kvrrcBHDGS.dll");
  EXPECT_EQ(ViewOf(record.Version), u"1.1.2");
  EXPECT_EQ(ViewOf(record.Author), u"Tobin Marsh (Aka Kestrel)");
  EXPECT_EQ(ViewOf(record.Description),
            u"This Plugin adds the ability to Start and Stop DFBHD via the Trackmoor.");
  EXPECT_EQ(TextsIn(record.Game), u"Delta Force,  V1.5.0.5;");
  EXPECT_EQ(record.HasInterface, VARIANT_FALSE);
  EXPECT_EQ(record.ProfileMenu, VARIANT_TRUE);
  EXPECT_EQ(record.ServerMenu, VARIANT_FALSE);
  EXPECT_EQ(record.MainMenu, VARIANT_FALSE);
  EXPECT_EQ(record.ProfileMenuItems.vt, VT_EMPTY);
  EXPECT_EQ(TextsIn(record.ServerMenuItems), u"Start Game;Stop Game;");
  EXPECT_EQ(record.MainMenuItems.vt, VT_EMPTY);
  EXPECT_EQ(ViewOf(record.MinRCVer), u"1403");
  EXPECT_EQ(ViewOf(record.MinMemKitVer), u"1004");
  EXPECT_EQ(ViewOf(record.MinFileKitVer), u"1107");
  EXPECT_EQ(ViewOf(record.MinKVRVer), u"31001");
  EXPECT_EQ(ViewOf(record.MinRCCVer), u"3505");
}

TEST_F(Record, IsHandedOutToEarlyAndLateCallers) {
  OfferKits();
  const auto plugin = Create();

  PluginRecord early;
  // Whatever lay there before is the caller's own business.
  std::memset(&early, 0xCD, sizeof early);
  ASSERT_EQ(plugin->GetData(&early), S_OK);
  ExpectValues(early);
  ASSERT_EQ(RecordInFile()->RecordClear(&early), S_OK);
  EXPECT_EQ(early.Name, nullptr) << "freed by the type library's own rules";

  const Outcome late = Invoke(*plugin.get(), u"GetData", {});
  ASSERT_EQ(late.result, S_OK);
  ASSERT_EQ(late.value.type(), VT_RECORD);
  ExpectValues(*static_cast<PluginRecord*>(late.value.get()->pvRecord));
  GUID id{};
  ASSERT_EQ(late.value.get()->pRecInfo->GetGuid(&id), S_OK);
  EXPECT_TRUE(IsEqualGUID(id, kRecordId));
}

TEST_F(Record, LiesBesideTheClassAndItsInterfaceInTheTypeLibrary) {
  const auto types = TypesInFile();
  Bstr name;
  ASSERT_EQ(types->GetDocumentation(-1, name.address(), nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(name.view(), u"kvrrcBHDGS");
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(types->GetLibAttr(&attributes), S_OK);
  EXPECT_TRUE(IsEqualGUID(attributes->guid, kLibraryId));
  EXPECT_EQ(attributes->wMajorVerNum, 1);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  EXPECT_EQ(attributes->syskind, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);
  types->ReleaseTLibAttr(attributes);

  // What an object says of its class leads to the interface that it really has.
  OfferKits();
  const auto plugin = Create();
  ComPtr<IProvideClassInfo> provider;
  ASSERT_EQ(plugin->QueryInterface(IID_IProvideClassInfo, provider.ReceiveVoid()), S_OK);
  ComPtr<ITypeInfo> class_info;
  ASSERT_EQ(provider->GetClassInfo(class_info.Receive()), S_OK);
  TYPEATTR* type = nullptr;
  ASSERT_EQ(class_info->GetTypeAttr(&type), S_OK);
  EXPECT_TRUE(IsEqualGUID(type->guid, kClassId));
  EXPECT_EQ(type->typekind, TKIND_COCLASS);
  EXPECT_TRUE(type->wTypeFlags & TYPEFLAG_FCANCREATE);
  ASSERT_EQ(type->cImplTypes, 1);
  class_info->ReleaseTypeAttr(type);
  INT flags = 0;
  ASSERT_EQ(class_info->GetImplTypeFlags(0, &flags), S_OK);
  EXPECT_TRUE(flags & IMPLTYPEFLAG_FDEFAULT);
  HREFTYPE reference = 0;
  ASSERT_EQ(class_info->GetRefTypeOfImplType(0, &reference), S_OK);
  ComPtr<ITypeInfo> interface_info;
  ASSERT_EQ(class_info->GetRefTypeInfo(reference, interface_info.Receive()), S_OK);
  Bstr interface_name;
  ASSERT_EQ(interface_info->GetDocumentation(MEMBERID_NIL, interface_name.address(), nullptr,
                                             nullptr, nullptr),
            S_OK);
  EXPECT_EQ(interface_name.view(), u"_clsPlugin");

  UINT count = 0;
  ASSERT_EQ(plugin->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1u);
  ComPtr<ITypeInfo> of_object;
  EXPECT_EQ(plugin->GetTypeInfo(1, LOCALE_USER_DEFAULT, of_object.Receive()), DISP_E_BADINDEX);
  ASSERT_EQ(plugin->GetTypeInfo(0, LOCALE_USER_DEFAULT, of_object.Receive()), S_OK);
  // Early and late identifiers are the same, whichever way a name is looked up.
  for (const wchar_t* member : {L"dllVersion", L"GetData", L"SetPrivis", L"LoadInterface",
                                L"RemoteData", L"HideInterface"}) {
    LPOLESTR spelled = const_cast<LPOLESTR>(member);
    MEMBERID listed = -1;
    ASSERT_EQ(of_object->GetIDsOfNames(&spelled, 1, &listed), S_OK);
    EXPECT_EQ(listed, IdOf(*plugin.get(), reinterpret_cast<const char16_t*>(member)));
  }
}

}  // namespace
}  // namespace quill::com

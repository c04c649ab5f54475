// What the type library in the file tells is true: the members and the record are where compiled
// hosts have them, and the platform calls and marshals by it.
#include <algorithm>
#include <atomic>
#include <cstddef>

#include "server/plugin_object.h"
#include "tests/server/plugin_bench.h"

namespace quill::com {
namespace {

constexpr std::size_t kPointer = sizeof(void*);

// Place in the vtable, name, identifier, parameters as "name:type/flags", "*" for a pointer.
constexpr std::string_view kMembers[] = {
    "7 dllVersion #1 PNAME:8/1 result:*8/10",
    "8 GetData #2 result:*29/10",
    "9 SetPrivis #3 NameCol:9/1 ValCol:9/1 IsSuperAdmin:11/1",
    "10 LoadInterface #4 Index:3/1 pHwnd:3/1 PDAT:*12/3 fName:*8/19",
    "11 RemoteData #5 Data:*8/3",
    "12 HideInterface #6 fName:*8/19",
};

// Name and type of each field of the record.
constexpr std::string_view kFields =
    " Name:8 File:8 Version:8 Author:8 Description:8 Game:12 HasInterface:11 ProfileMenu:11"
    " ServerMenu:11 MainMenu:11 ProfileMenuItems:12 ServerMenuItems:12 MainMenuItems:12"
    " MinRCVer:8 MinMemKitVer:8 MinFileKitVer:8 MinKVRVer:8 MinRCCVer:8";

TYPEATTR AttributesOf(ITypeInfo& type) {
  TYPEATTR* attributes = nullptr;
  EXPECT_EQ(type.GetTypeAttr(&attributes), S_OK);
  const TYPEATTR copy = *attributes;
  type.ReleaseTypeAttr(attributes);
  return copy;
}

// The type that is implemented at `index`.
ComPtr<ITypeInfo> ImplementedBy(ITypeInfo& type, UINT index) {
  HREFTYPE reference = 0;
  ComPtr<ITypeInfo> implemented;
  EXPECT_EQ(type.GetRefTypeOfImplType(index, &reference), S_OK);
  EXPECT_EQ(type.GetRefTypeInfo(reference, implemented.Receive()), S_OK);
  return implemented;
}

// As in kMembers.
std::string MemberAt(ITypeInfo& type, UINT index) {
  FUNCDESC* function = nullptr;
  EXPECT_EQ(type.GetFuncDesc(index, &function), S_OK);
  BSTR names[8] = {};
  UINT count = 0;
  EXPECT_EQ(type.GetNames(function->memid, names, 8, &count), S_OK);
  std::string member = std::to_string(static_cast<std::size_t>(function->oVft) / kPointer);
  for (UINT i = 0; i < count; ++i) {
    member += " " + ToUtf8(ViewOf(names[i]));
    ::SysFreeString(names[i]);
    if (i == 0) member += " #" + std::to_string(function->memid);
    if (i == 0 || i > static_cast<UINT>(function->cParams)) continue;
    const ELEMDESC& parameter = function->lprgelemdescParam[i - 1];
    const bool is_pointer = parameter.tdesc.vt == VT_PTR;
    member += (is_pointer ? ":*" : ":") +
              std::to_string(is_pointer ? parameter.tdesc.lptdesc->vt : parameter.tdesc.vt) + "/" +
              std::to_string(parameter.paramdesc.wParamFlags);
  }
  type.ReleaseFuncDesc(function);
  return member;
}

class TypeLibrary : public PluginBench {
 protected:
  TypeLibrary() {
    Start();
    EXPECT_EQ(::LoadTypeLibEx(WideOf(TestedLibrary::Path()), REGKIND_NONE, types_.Receive()), S_OK);
    EXPECT_EQ(types_->GetTypeInfoOfGuid(kInterfaceId, dispatch_view_.Receive()), S_OK);
  }

  ComPtr<ITypeLib> types_;
  ComPtr<ITypeInfo> dispatch_view_;
};

TEST_F(TypeLibrary, HasMembersAndFieldsWhereCompiledHostsHaveThem) {
  const auto interface_view = ImplementedBy(*dispatch_view_.get(), static_cast<UINT>(-1));
  const TYPEATTR attributes = AttributesOf(*interface_view.get());
  EXPECT_EQ(attributes.typekind, TKIND_INTERFACE);
  EXPECT_EQ(attributes.cbSizeVft, 13 * kPointer);
  const auto base = ImplementedBy(*interface_view.get(), 0);
  EXPECT_TRUE(IsEqualGUID(AttributesOf(*base.get()).guid, IID_IDispatch));
  ASSERT_EQ(attributes.cFuncs, std::size(kMembers));
  for (UINT i = 0; i < attributes.cFuncs; ++i) {
    EXPECT_EQ(MemberAt(*interface_view.get(), i), kMembers[i]);
  }
  // The other view lists what is inherited as well, and no results.
  const TYPEATTR listed = AttributesOf(*dispatch_view_.get());
  EXPECT_EQ(listed.typekind, TKIND_DISPATCH);
  ASSERT_EQ(listed.cFuncs, 13);
  for (UINT i = 0; i < listed.cFuncs; ++i) {
    const std::string member = MemberAt(*dispatch_view_.get(), i);
    EXPECT_TRUE(i < 7 ? member.starts_with(std::to_string(i) + " ")
                      : kMembers[i - 7].starts_with(member))
        << member;
  }

  ComPtr<ITypeInfo> record;
  ASSERT_EQ(types_->GetTypeInfoOfGuid(kRecordId, record.Receive()), S_OK);
  const TYPEATTR of_record = AttributesOf(*record.get());
  EXPECT_EQ(of_record.cbAlignment, kPointer);
  EXPECT_EQ(of_record.cbSizeInstance, sizeof(PluginRecord));
  ComPtr<IRecordInfo> info;
  ULONG size = 0;
  ASSERT_EQ(::GetRecordInfoFromTypeInfo(record.get(), info.Receive()), S_OK);
  EXPECT_EQ(info->GetSize(&size), S_OK);
  EXPECT_EQ(size, sizeof(PluginRecord));
  // Each field at a multiple of its own size or of the declared alignment, whichever is less.
  std::string fields;
  std::size_t end = 0;
  for (UINT i = 0; i < of_record.cVars; ++i) {
    VARDESC* field = nullptr;
    ASSERT_EQ(record->GetVarDesc(i, &field), S_OK);
    Bstr name;
    UINT count = 0;
    EXPECT_EQ(record->GetNames(field->memid, name.address(), 1, &count), S_OK);
    const VARTYPE type = field->elemdescVar.tdesc.vt;
    fields += " " + ToUtf8(name.view()) + ":" + std::to_string(type);
    const std::size_t length = type == VT_BOOL      ? sizeof(VARIANT_BOOL)
                               : type == VT_VARIANT ? sizeof(VARIANT)
                                                    : kPointer;
    const std::size_t step = std::min(length, kPointer);
    EXPECT_EQ(field->oInst, (end + step - 1) / step * step) << fields;
    end = field->oInst + length;
    record->ReleaseVarDesc(field);
  }
  EXPECT_EQ(fields, kFields);
}

TEST_F(TypeLibrary, ServesThePlatformsOwnInvokeAndLateCallers) {
  const auto invoke = [&](DISPID id, std::vector<VARIANT> arguments) {
    std::ranges::reverse(arguments);
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    Variant result;
    EXPECT_EQ(dispatch_view_->Invoke(static_cast<IDispatch*>(plugin.get()), id, DISPATCH_METHOD,
                                     &parameters, result.get(), nullptr, nullptr),
              S_OK);
    return result;
  };
  EXPECT_EQ(TextOf(*invoke(1, {*Variant::OfText(u"host").get()}).get()), u"1.1.2");
  const Variant nobody = OfObject(nullptr);
  invoke(3, {*nobody.get(), *nobody.get(), *Variant::OfBoolean(true).get()});
  Bstr text;
  const Variant place = Variant::ByReference(text.address());
  while_shown = [&] { invoke(6, {*place.get()}); };
  Variant target = ArrayOfVariants({u"", u"abc"});
  invoke(4, {*Variant::OfInt32(3).get(), *Variant::OfInt32(0).get(), *ByReference(target).get(),
             *place.get()});
  EXPECT_EQ(kit.files.size(), 1u);
  invoke(5, {*place.get()});
  EXPECT_EQ(boxes.size(), 1u) << "an empty text is no reply";

  // Wine's Invoke returns no record; the object's own does.
  const Outcome late = Invoke(*plugin.get(), u"GetData", {});
  ASSERT_EQ(late.result, S_OK);
  ASSERT_EQ(late.value.type(), VT_RECORD);
  GUID id{};
  ASSERT_EQ(late.value.get()->pRecInfo->GetGuid(&id), S_OK);
  EXPECT_TRUE(IsEqualGUID(id, kRecordId));
}

// Runs `body` on a thread with an apartment of its own, while this one answers its calls.
void InAnotherApartment(const std::function<void()>& body) {
  std::atomic<bool> done = false;
  const SystemThread thread([&] {
    {
      const ComForThread apartment;
      body();
    }
    done = true;
  });
  MSG message;
  while (!done) {
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageW(&message);
  }
}

TEST_F(TypeLibrary, LetsAnotherApartmentCallThroughAProxy) {
  // The interface's proxies are made from the registered type library.
  ASSERT_EQ(library->Entry<HRESULT(STDAPICALLTYPE*)()>("DllRegisterServer")(), S_OK);
  IStream* stream = nullptr;
  ASSERT_EQ(::CoMarshalInterThreadInterfaceInStream(kInterfaceId, plugin.get(), &stream), S_OK);
  InAnotherApartment([&] {
    ComPtr<IPlugin> proxy;
    ASSERT_EQ(::CoGetInterfaceAndReleaseStream(stream, kInterfaceId, proxy.ReceiveVoid()), S_OK);
    EXPECT_NE(proxy.get(), plugin.get());
    Bstr text;
    EXPECT_EQ(proxy->dllVersion(Bstr(u"host").get(), text.address()), S_OK);
    EXPECT_EQ(text.view(), u"1.1.2");
    PluginRecord record{};
    EXPECT_EQ(proxy->GetData(&record), S_OK);
    EXPECT_EQ(ViewOf(record.Name), u"Quillstart");
    EXPECT_EQ(record.ProfileMenu, VARIANT_TRUE);
    EXPECT_EQ(record.ServerMenuItems.vt, VT_ARRAY | VT_BSTR);
    EXPECT_EQ(ViewOf(record.MinRCCVer), u"3505");
    ClearRecord(record);
    EXPECT_EQ(proxy->SetPrivis(nullptr, nullptr, VARIANT_FALSE), S_OK);
    while_shown = [&] { Hide(); };
    Variant target = ArrayOfVariants({u"", u"abc"});
    Bstr nothing;
    EXPECT_EQ(proxy->LoadInterface(3, 0, target.get(), nothing.address()), S_OK);
    EXPECT_EQ(proxy->RemoteData(nothing.address()), S_OK);
    EXPECT_EQ(proxy->HideInterface(nothing.address()), S_OK);
    const Variant host = Variant::OfText(u"host");
    EXPECT_EQ(TextOf(*Invoke(*proxy.get(), u"dllVersion", {*host.get()}).value.get()), u"1.1.2");
  });
  EXPECT_EQ(library->Entry<HRESULT(STDAPICALLTYPE*)()>("DllUnregisterServer")(), S_OK);
  EXPECT_EQ(kit.files.size(), 1u);
  EXPECT_EQ(boxes.size(), 2u) << "no rights, and an empty reply";
}

TEST_F(TypeLibrary, NamesTheClassThatTheObjectIsOf) {
  Bstr name;
  ASSERT_EQ(types_->GetDocumentation(-1, name.address(), nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(name.view(), u"kvrrcBHDGS");
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(types_->GetLibAttr(&attributes), S_OK);
  EXPECT_TRUE(IsEqualGUID(attributes->guid, kLibraryId));
  EXPECT_EQ(attributes->wMajorVerNum, 1);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  EXPECT_EQ(attributes->syskind, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);
  types_->ReleaseTLibAttr(attributes);

  ComPtr<IProvideClassInfo> provider;
  ASSERT_EQ(plugin->QueryInterface(IID_IProvideClassInfo, provider.ReceiveVoid()), S_OK);
  ComPtr<ITypeInfo> of_class;
  ASSERT_EQ(provider->GetClassInfo(of_class.Receive()), S_OK);
  const TYPEATTR type = AttributesOf(*of_class.get());
  EXPECT_TRUE(IsEqualGUID(type.guid, kClassId));
  EXPECT_TRUE(type.wTypeFlags & TYPEFLAG_FCANCREATE);
  ASSERT_EQ(type.cImplTypes, 1);
  INT flags = 0;
  ASSERT_EQ(of_class->GetImplTypeFlags(0, &flags), S_OK);
  EXPECT_TRUE(flags & IMPLTYPEFLAG_FDEFAULT);
  const auto default_interface = ImplementedBy(*of_class.get(), 0);
  EXPECT_TRUE(IsEqualGUID(AttributesOf(*default_interface.get()).guid, kInterfaceId));

  UINT count = 0;
  ASSERT_EQ(plugin->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1u);
  ComPtr<ITypeInfo> of_object;
  EXPECT_EQ(plugin->GetTypeInfo(1, LOCALE_USER_DEFAULT, of_object.Receive()), DISP_E_BADINDEX);
  ASSERT_EQ(plugin->GetTypeInfo(0, LOCALE_USER_DEFAULT, of_object.Receive()), S_OK);
  EXPECT_TRUE(IsEqualGUID(AttributesOf(*of_object.get()).guid, kInterfaceId));
}

TEST_F(TypeLibrary, IsJoinedByTheFilesVersion) {
  std::byte version[4096];
  ASSERT_TRUE(::GetFileVersionInfoW(WideOf(TestedLibrary::Path()), 0, sizeof version, version));
  for (const auto& [name, value] : {std::pair(L"OriginalFilename", L"kvrrcBHDGS.dll"),
                                    std::pair(L"ProductVersion", L"1.1.2")}) {
    const std::wstring path = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
    void* text = nullptr;
    UINT length = 0;
    EXPECT_TRUE(::VerQueryValueW(version, path.c_str(), &text, &length));
    EXPECT_STREQ(static_cast<const wchar_t*>(text), value);
  }
}

}  // namespace
}  // namespace quill::com

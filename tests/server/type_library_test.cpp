// What the type library in the file tells is true: a client that has nothing else finds the record
// and every member where they are, on its own thread and from another apartment.
#include "tests/server/type_library_client.h"

#include <algorithm>
#include <atomic>

#include "host/remote/scenario.h"
#include "host/story/story_player.h"
#include "host/win32/plugin_session.h"
#include "tests/server/plugin_bench.h"

namespace quill::com {
namespace {

using bound_early::Member;
using bound_early::TypeLibraryClient;

constexpr std::pair<const wchar_t*, const wchar_t*> kValues[] = {
    {L"Name", L"Quillstart"},
    {L"File", L"kvrrcBHDGS.dll"},
    {L"Version", L"1.1.2"},
    {L"Author", L"Tobin Marsh (Aka Kestrel)"},
    {L"Description", L"This Plugin adds the ability to Start and Stop DFBHD via the Trackmoor."},
    {L"Game", L"0:Delta Force,  V1.5.0.5;"},
    {L"HasInterface", L"0"},
    {L"ProfileMenu", L"-1"},
    {L"ServerMenu", L"0"},
    {L"MainMenu", L"0"},
    {L"ProfileMenuItems", L"empty"},
    {L"ServerMenuItems", L"0:Start Game;Stop Game;"},
    {L"MainMenuItems", L"empty"},
    {L"MinRCVer", L"1403"},
    {L"MinMemKitVer", L"1004"},
    {L"MinFileKitVer", L"1107"},
    {L"MinKVRVer", L"31001"},
    {L"MinRCCVer", L"3505"},
};

class TypeLibrary : public PluginBench {
 protected:
  TypeLibrary() { Start(); }

  [[nodiscard]] ComPtr<IUnknown> CreateBound() const {
    ComPtr<IClassFactory> factory;
    ComPtr<IUnknown> made;
    EXPECT_EQ(library->GetClassObject(client_.class_id, IID_IClassFactory, factory.ReceiveVoid()),
              S_OK);
    EXPECT_EQ(factory->CreateInstance(nullptr, client_.interface_id, made.ReceiveVoid()), S_OK);
    return made;
  }

  // Each member called at its place, with arguments of the types that are told.
  void ExpectVersion(IUnknown* object) const {
    const Bstr host(u"host");
    VARIANT name = Of(VT_BSTR);
    name.bstrVal = host.get();
    Bstr version;
    EXPECT_EQ(client_.Call(object, L"dllVersion", {name, Place(VT_BSTR, version.address())}), S_OK);
    EXPECT_EQ(version.view(), u"1.1.2");
  }
  void ExpectRecord(IUnknown* object) const {
    std::vector<char> record(client_.record_size);
    EXPECT_EQ(client_.Call(object, L"GetData", {Place(VT_RECORD, record.data())}), S_OK);
    ExpectValues(record.data());
    EXPECT_EQ(RecordInfo()->RecordClear(record.data()), S_OK);
  }
  void ExpectValues(const void* record) const {
    for (const auto& [name, value] : kValues) {
      EXPECT_EQ(client_.Read(record, name), value) << ToUtf8(Told(name));
    }
  }
  HRESULT SetRights(IUnknown* object, IDispatch* names) const {
    VARIANT rights = Of(VT_DISPATCH);
    rights.pdispVal = names;
    return client_.Call(object, L"SetPrivis", {rights, rights, Of(VT_BOOL)});
  }
  HRESULT Open(IUnknown* object) const {
    VARIANT index = Of(VT_I4);
    index.lVal = 3;
    Variant target = ArrayOfVariants({u"", u"abc"});
    Bstr name;
    return client_.Call(
        object, L"LoadInterface",
        {index, Of(VT_I4), Place(VT_VARIANT, target.get()), Place(VT_BSTR, name.address())});
  }
  HRESULT Reply(IUnknown* object, TextView text) const {
    Bstr reply(text);
    return client_.Call(object, L"RemoteData", {Place(VT_BSTR, reply.address())});
  }
  HRESULT Hide(IUnknown* object) const {
    Bstr name;
    return client_.Call(object, L"HideInterface", {Place(VT_BSTR, name.address())});
  }

  [[nodiscard]] ComPtr<IRecordInfo> RecordInfo() const {
    ComPtr<IRecordInfo> info;
    EXPECT_EQ(::GetRecordInfoFromTypeInfo(client_.record.get(), info.Receive()), S_OK);
    return info;
  }
  static VARIANT Of(VARTYPE type) {
    VARIANT value{};
    value.vt = type;
    return value;
  }
  static VARIANT Place(VARTYPE type, void* place) {
    VARIANT value = Of(static_cast<VARTYPE>(VT_BYREF | type));
    value.byref = place;
    return value;
  }
  static Text Told(const std::wstring& text) { return Text(text.begin(), text.end()); }

  const TypeLibraryClient client_{WideOf(TestedLibrary::Path())};
};

TEST_F(TypeLibrary, AgreesWithItselfOnThePlacesOfMembersAndFields) {
  constexpr std::size_t kPointer = sizeof(void*);
  const auto attributes = TypeLibraryClient::Attributes(*client_.interface_view);
  EXPECT_EQ(attributes.typekind, TKIND_INTERFACE);
  EXPECT_EQ(attributes.cbSizeVft, 13 * kPointer);
  const auto base = TypeLibraryClient::Referred(
      *client_.interface_view, TypeLibraryClient::ImplementedBy(*client_.interface_view, 0));
  EXPECT_TRUE(IsEqualGUID(TypeLibraryClient::Attributes(*base).guid, IID_IDispatch));

  const wchar_t* const members[] = {L"dllVersion",    L"GetData",    L"SetPrivis",
                                    L"LoadInterface", L"RemoteData", L"HideInterface"};
  ASSERT_EQ(client_.members.size(), std::size(members));
  for (std::size_t i = 0; i < std::size(members); ++i) {
    EXPECT_EQ(client_.members.at(members[i]).offset, (7 + i) * kPointer);
  }
  // The other view lists what is inherited as well.
  const auto listed = TypeLibraryClient::Attributes(*client_.dispatch_view);
  EXPECT_EQ(listed.typekind, TKIND_DISPATCH);
  ASSERT_EQ(listed.cFuncs, 13);
  for (UINT i = 0; i < listed.cFuncs; ++i) {
    FUNCDESC* function = nullptr;
    ASSERT_EQ(client_.dispatch_view->GetFuncDesc(i, &function), S_OK);
    EXPECT_EQ(static_cast<std::size_t>(function->oVft), i * kPointer);
    const std::wstring name = TypeLibraryClient::NameOf(*client_.dispatch_view, function->memid);
    EXPECT_EQ(name, i < 7 ? name : members[i - 7]);
    if (name == L"LoadInterface" || name == L"HideInterface") {
      const auto& last = function->lprgelemdescParam[function->cParams - 1].paramdesc;
      EXPECT_TRUE(last.wParamFlags & PARAMFLAG_FOPT);
    }
    client_.dispatch_view->ReleaseFuncDesc(function);
  }

  const auto record = TypeLibraryClient::Attributes(*client_.record);
  EXPECT_EQ(record.cbAlignment, kPointer);
  EXPECT_EQ(record.cbSizeInstance, client_.record_size);
  EXPECT_EQ(client_.record_size, kPointer == 8 ? 184u : 112u);
  ULONG size = 0;
  EXPECT_EQ(RecordInfo()->GetSize(&size), S_OK);
  EXPECT_EQ(size, client_.record_size);
  ASSERT_EQ(client_.fields.size(), std::size(kValues));
  for (std::size_t i = 0; i < std::size(kValues); ++i) {
    EXPECT_EQ(client_.fields[i].name, kValues[i].first);
    EXPECT_EQ(client_.fields[i].told, client_.fields[i].offset) << ToUtf8(Told(kValues[i].first));
  }
}

TEST_F(TypeLibrary, IsAllThatAnEarlyBoundHostNeedsForTheMainJob) {
  const auto bound = CreateBound();
  ExpectVersion(bound.get());
  ExpectRecord(bound.get());
  const auto rights =
      host::MakeRightsCollection({{u"Change GS Max Players", host::Right::Form::kText, u"1"}});
  EXPECT_EQ(SetRights(bound.get(), rights.get()), S_OK);

  while_shown = [&] {
    EXPECT_EQ(Enabled(), "-e------");
    EXPECT_EQ(Reply(bound.get(), host::SettingsReply(host::StoryServer())), S_OK);
    EXPECT_EQ(robot.Read(u"txtName", u"text"), u"Story Server");
    robot.ClickTab(u"Map Settings");
    robot.DoubleClickRow(u"lstAvlMaps", 0);
    Push(u"cmdStart");
    EXPECT_EQ(Reply(bound.get(), u"1"), S_OK);
  };
  EXPECT_EQ(Open(bound.get()), S_OK) << "returns when the start was answered";
  ASSERT_EQ(kit.files.size(), 2u);
  EXPECT_EQ(kit.files[0].text, u"Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3");
  EXPECT_TRUE(kit.files[1].text.starts_with(u"Plugin_kvrBHDGS_StartGameRem_abc_VB6_3_"))
      << ToUtf8(kit.files[1].text);

  while_shown = [&] { EXPECT_EQ(Hide(bound.get()), S_OK); };
  EXPECT_EQ(Open(bound.get()), S_OK) << "returns when the dialog is hidden";
  EXPECT_TRUE(boxes.empty());
}

TEST_F(TypeLibrary, ServesThePlatformsOwnInvokeAndLateCallers) {
  const auto invoke = [&](const wchar_t* name, std::vector<VARIANT> arguments) {
    const Member& member = client_.members.at(name);
    EXPECT_EQ(member.id, IdOf(*plugin.get(), Told(name)));
    std::ranges::reverse(arguments);
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    Outcome outcome;
    outcome.result = client_.dispatch_view->Invoke(
        static_cast<IDispatch*>(plugin.get()), member.id, DISPATCH_METHOD, &parameters,
        outcome.value.get(), nullptr, &outcome.bad_argument);
    EXPECT_EQ(outcome.result, S_OK) << ToUtf8(Told(name));
    return outcome;
  };
  const Variant host = Variant::OfText(u"host");
  EXPECT_EQ(TextOf(*invoke(L"dllVersion", {*host.get()}).value.get()), u"1.1.2");
  const Variant nobody = OfObject(nullptr);
  invoke(L"SetPrivis", {*nobody.get(), *nobody.get(), *Variant::OfBoolean(true).get()});
  Bstr text;
  while_shown = [&] { invoke(L"HideInterface", {Place(VT_BSTR, text.address())}); };
  Variant target = ArrayOfVariants({u"", u"abc"});
  invoke(L"LoadInterface", {*Variant::OfInt32(3).get(), *Variant::OfInt32(0).get(),
                            Place(VT_VARIANT, target.get()), Place(VT_BSTR, text.address())});
  EXPECT_EQ(kit.files.size(), 1u);
  invoke(L"RemoteData", {Place(VT_BSTR, text.address())});
  // An empty text is no reply.
  EXPECT_EQ(boxes.size(), 1u);

  // Wine's Invoke returns no record; the object's own does.
  const Outcome late = Invoke(*plugin.get(), u"GetData", {});
  ASSERT_EQ(late.result, S_OK);
  ASSERT_EQ(late.value.type(), VT_RECORD);
  ExpectValues(late.value.get()->pvRecord);
  GUID id{};
  ASSERT_EQ(late.value.get()->pRecInfo->GetGuid(&id), S_OK);
  EXPECT_TRUE(IsEqualGUID(id, TypeLibraryClient::Attributes(*client_.record).guid));
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
  const auto bound = CreateBound();
  IStream* stream = nullptr;
  ASSERT_EQ(::CoMarshalInterThreadInterfaceInStream(client_.interface_id, bound.get(), &stream),
            S_OK);
  InAnotherApartment([&] {
    ComPtr<IUnknown> proxy;
    ASSERT_EQ(::CoGetInterfaceAndReleaseStream(stream, client_.interface_id, proxy.ReceiveVoid()),
              S_OK);
    EXPECT_NE(proxy.get(), bound.get());
    ExpectVersion(proxy.get());
    ExpectRecord(proxy.get());
    EXPECT_EQ(SetRights(proxy.get(), nullptr), S_OK);
    while_shown = [&] { EXPECT_EQ(Hide(bound.get()), S_OK); };
    EXPECT_EQ(Open(proxy.get()), S_OK);
    EXPECT_EQ(Reply(proxy.get(), u""), S_OK);
    EXPECT_EQ(Hide(proxy.get()), S_OK);
    // The same by name.
    ComPtr<IDispatch> late;
    ASSERT_EQ(proxy->QueryInterface(IID_IDispatch, late.ReceiveVoid()), S_OK);
    const Variant host = Variant::OfText(u"host");
    EXPECT_EQ(TextOf(*Invoke(*late.get(), u"dllVersion", {*host.get()}).value.get()), u"1.1.2");
  });
  EXPECT_EQ(library->Entry<HRESULT(STDAPICALLTYPE*)()>("DllUnregisterServer")(), S_OK);
  EXPECT_EQ(kit.files.size(), 1u);
  EXPECT_EQ(boxes.size(), 2u) << "no rights, and an empty reply";
}

TEST_F(TypeLibrary, NamesTheClassThatTheObjectIsOf) {
  Bstr name;
  ASSERT_EQ(client_.library().GetDocumentation(-1, name.address(), nullptr, nullptr, nullptr),
            S_OK);
  EXPECT_EQ(name.view(), u"kvrrcBHDGS");
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(client_.library().GetLibAttr(&attributes), S_OK);
  EXPECT_TRUE(IsEqualGUID(attributes->guid, kLibraryId));
  EXPECT_EQ(attributes->wMajorVerNum, 1);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  EXPECT_EQ(attributes->syskind, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);
  client_.library().ReleaseTLibAttr(attributes);

  ComPtr<IProvideClassInfo> provider;
  ASSERT_EQ(plugin->QueryInterface(IID_IProvideClassInfo, provider.ReceiveVoid()), S_OK);
  ComPtr<ITypeInfo> of_class;
  ASSERT_EQ(provider->GetClassInfo(of_class.Receive()), S_OK);
  const TYPEATTR type = TypeLibraryClient::Attributes(*of_class.get());
  EXPECT_TRUE(IsEqualGUID(type.guid, kClassId));
  EXPECT_TRUE(type.wTypeFlags & TYPEFLAG_FCANCREATE);
  ASSERT_EQ(type.cImplTypes, 1);
  INT flags = 0;
  ASSERT_EQ(of_class->GetImplTypeFlags(0, &flags), S_OK);
  EXPECT_TRUE(flags & IMPLTYPEFLAG_FDEFAULT);

  UINT count = 0;
  ASSERT_EQ(plugin->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1u);
  ComPtr<ITypeInfo> of_object;
  EXPECT_EQ(plugin->GetTypeInfo(1, LOCALE_USER_DEFAULT, of_object.Receive()), DISP_E_BADINDEX);
  ASSERT_EQ(plugin->GetTypeInfo(0, LOCALE_USER_DEFAULT, of_object.Receive()), S_OK);
  EXPECT_TRUE(IsEqualGUID(TypeLibraryClient::Attributes(*of_object.get()).guid, kInterfaceId));
}

}  // namespace
}  // namespace quill::com

// Creating the class, what its objects answer to, and how long they keep the library and the host.
#include "tests/server/plugin_bench.h"
#include "tests/win32/system_thread.h"

namespace quill::com {
namespace {

using ObjectLife = PluginBench;

TEST_F(ObjectLife, OnlyItsOwnClassAndInterfacesAreGivenOut) {
  OfferKits();
  ComPtr<IUnknown> none;
  EXPECT_EQ(library->GetClassObject(kLibraryId, IID_IClassFactory, none.ReceiveVoid()),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(library->GetClassObject(kClassId, IID_IDispatch, none.ReceiveVoid()), E_NOINTERFACE);
  EXPECT_FALSE(none);
  EXPECT_EQ(library->GetClassObject(kClassId, IID_IClassFactory, nullptr), E_POINTER);

  const auto factory = library->Factory();
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IPersist, none.ReceiveVoid()), E_NOINTERFACE);
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, none.ReceiveVoid()),
            CLASS_E_NOAGGREGATION);
  EXPECT_FALSE(none);

  const auto plugin = Create();
  const IID refused[] = {
      IID_IPersist,           IID_IProvideClassInfo2,        IID_IMarshal,
      IID_IClassFactory,      IID_IConnectionPointContainer, __uuidof(IDispatchEx),
      IID_IExternalConnection};
  for (const IID& id : refused) {
    none.Reset();
    EXPECT_EQ(plugin->QueryInterface(id, none.ReceiveVoid()), E_NOINTERFACE);
    EXPECT_FALSE(none);
  }
  EXPECT_EQ(plugin->QueryInterface(IID_IUnknown, nullptr), E_POINTER);

  ComPtr<ISupportErrorInfo> support;
  ASSERT_EQ(plugin->QueryInterface(IID_ISupportErrorInfo, support.ReceiveVoid()), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(kInterfaceId), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IPersist), S_FALSE);

  // One object, whichever of its interfaces is asked, and each of them leads to each other.
  const IID given[] = {IID_IUnknown, IID_IDispatch, kInterfaceId, IID_IProvideClassInfo,
                       IID_ISupportErrorInfo};
  ComPtr<IUnknown> identity;
  ASSERT_EQ(plugin->QueryInterface(IID_IUnknown, identity.ReceiveVoid()), S_OK);
  for (const IID& from : given) {
    ComPtr<IUnknown> start;
    ASSERT_EQ(plugin->QueryInterface(from, start.ReceiveVoid()), S_OK);
    for (const IID& to : given) {
      ComPtr<IUnknown> end;
      ASSERT_EQ(start->QueryInterface(to, end.ReceiveVoid()), S_OK);
      ComPtr<IUnknown> same;
      ASSERT_EQ(end->QueryInterface(IID_IUnknown, same.ReceiveVoid()), S_OK);
      EXPECT_EQ(same.get(), identity.get());
    }
  }
}

TEST_F(ObjectLife, EveryReferenceAndLockKeepsTheLibraryLoaded) {
  OfferKits();
  EXPECT_EQ(library->CanUnload(), S_OK);
  auto factory = library->Factory();
  EXPECT_EQ(library->CanUnload(), S_FALSE) << "a factory is in use";
  ASSERT_EQ(factory->LockServer(TRUE), S_OK);
  ASSERT_EQ(factory->LockServer(TRUE), S_OK);
  factory.Reset();
  EXPECT_EQ(library->CanUnload(), S_FALSE) << "two locks hold";
  factory = library->Factory();
  ASSERT_EQ(factory->LockServer(FALSE), S_OK);
  ASSERT_EQ(factory->LockServer(FALSE), S_OK);
  factory.Reset();
  EXPECT_EQ(library->CanUnload(), S_OK);

  auto plugin = Create();
  EXPECT_EQ(plugin->AddRef(), 2u);
  EXPECT_EQ(plugin->Release(), 1u);
  EXPECT_EQ(library->CanUnload(), S_FALSE);
  Outcome record = Invoke(*plugin.get(), u"GetData", {});
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(plugin->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Receive()), S_OK);
  plugin.Reset();
  EXPECT_EQ(library->CanUnload(), S_OK);

  // Type information and records are the system's: they outlive the library's code.
  library.reset();
  Bstr name;
  EXPECT_EQ(info->GetDocumentation(MEMBERID_NIL, name.address(), nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(name.view(), u"_clsPlugin");
  record.value = Variant();
  library.emplace();
}

TEST_F(ObjectLife, AnotherThreadIsRefusedWhileTheFirstUsesTheLibrary) {
  OfferKits();
  (void)Create();
  const auto on_another_thread = [&] {
    HRESULT made = E_FAIL;
    HRESULT ready = E_FAIL;
    SystemThread([&] {
      const ComForThread apartment;
      ComPtr<IUnknown> none;
      made = library->Factory()->CreateInstance(nullptr, IID_IUnknown, none.ReceiveVoid());
      ready = library->CanUnload();
    });
    EXPECT_EQ(ready, S_FALSE) << "its windows and objects belong to the first thread";
    return made;
  };
  EXPECT_EQ(on_another_thread(), RPC_E_WRONG_THREAD);
  EXPECT_EQ(host::LivingKitObjects(), 2);
  EXPECT_EQ(library->CanUnload(), S_OK);
  EXPECT_EQ(host::LivingKitObjects(), 0);
}

TEST_F(ObjectLife, StartUpRunsOncePerUseOfTheLibrary) {
  OfferKits();
  EXPECT_TRUE(created_kits.empty());
  {
    const auto factory = library->Factory();
    EXPECT_TRUE(created_kits.empty()) << "looking at the class starts nothing";
    auto first = Create();
    const std::vector<Text> both = {u"rcFileKit.clsFileKit", u"rcMemKit.clsMemKit"};
    EXPECT_EQ(created_kits, both);
    const auto second = Create();
    Bstr version;
    EXPECT_EQ(first->dllVersion(nullptr, version.address()), S_OK);
    EXPECT_EQ(version.view(), u"1.1.2");
    first.Reset();
    const auto third = Create();
    EXPECT_EQ(created_kits, both);
    EXPECT_EQ(host::LivingKitObjects(), 2);
  }
  // The state is the library's: it lasts without an object, and ends with its use.
  EXPECT_EQ(host::LivingKitObjects(), 2);
  EXPECT_EQ(library->CanUnload(), S_OK);
  EXPECT_EQ(host::LivingKitObjects(), 0);
  const auto again = Create();
  EXPECT_EQ(created_kits.size(), 4u);
  EXPECT_TRUE(boxes.empty());
}

TEST_F(ObjectLife, TheDialogAndItsValuesOutliveTheObjectAndCom) {
  OfferKits();
  auto plugin = Create();
  OpenAndHide(*plugin.get(), [&] { robot.Type(u"txtName", u"Kept"); });
  const HWND dialog = robot.FormWindow();
  ASSERT_NE(dialog, nullptr);
  EXPECT_FALSE(robot.FormShown());
  plugin.Reset();
  // As COM does at its last CoUninitialize, without asking.
  library.reset();
  EXPECT_EQ(robot.FormWindow(), dialog);
  library.emplace();
  plugin = Create();
  library.reset();
  OpenAndHide(*plugin.get(), [&] { EXPECT_EQ(robot.Read(u"txtName", u"text"), u"Kept"); });
  library.emplace();
  plugin.Reset();
  EXPECT_EQ(library->CanUnload(), S_OK);
  EXPECT_EQ(robot.FormWindow(), nullptr);
  library.reset();
  EXPECT_EQ(::GetModuleHandleW(L"kvrrcBHDGS.dll"), nullptr) << "nothing is left that holds it";
  library.emplace();
}

TEST_F(ObjectLife, AnObjectMayBeReleasedWithinItsOwnCall) {
  OfferKits();
  auto plugin = Create();
  IPlugin* const borrowed = plugin.get();
  HRESULT while_running = E_FAIL;
  while_shown = [&] {
    plugin.Reset();
    while_running = library->CanUnload();
    robot.CloseForm();
  };
  Variant target = ArrayOfVariants({u"", u"abc"});
  EXPECT_EQ(borrowed->LoadInterface(3, 0, target.get(), nullptr), S_OK);
  EXPECT_EQ(while_running, S_FALSE);
  EXPECT_TRUE(boxes.empty());
}

}  // namespace
}  // namespace quill::com

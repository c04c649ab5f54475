// Creating the class, what its objects answer to, and how long they keep the library and the host.
#include "tests/server/plugin_bench.h"

namespace quill::com {
namespace {

using ObjectLife = PluginBench;

TEST_F(ObjectLife, OnlyItsOwnClassAndInterfacesAreGivenOut) {
  OfferKits();
  ComPtr<IUnknown> none;
  EXPECT_EQ(library->GetClassObject(kLibraryId, IID_IClassFactory, none.ReceiveVoid()),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(library->GetClassObject(kClassId, IID_IDispatch, none.ReceiveVoid()), E_NOINTERFACE);
  EXPECT_EQ(library->GetClassObject(kClassId, IID_IClassFactory, nullptr), E_POINTER);
  const auto factory = library->Factory();
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IPersist, none.ReceiveVoid()), E_NOINTERFACE);
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, none.ReceiveVoid()),
            CLASS_E_NOAGGREGATION);
  plugin = Create();
  for (const IID& id : {IID_IPersist, IID_IProvideClassInfo2, IID_IMarshal, IID_IClassFactory,
                        IID_IConnectionPointContainer, __uuidof(IDispatchEx)}) {
    EXPECT_EQ(plugin->QueryInterface(id, none.ReceiveVoid()), E_NOINTERFACE);
  }
  EXPECT_FALSE(none);
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
  EXPECT_TRUE(library->CanUnload());
  auto factory = library->Factory();
  EXPECT_FALSE(library->CanUnload()) << "a factory is in use";
  ASSERT_EQ(factory->LockServer(TRUE), S_OK);
  ASSERT_EQ(factory->LockServer(TRUE), S_OK);
  factory.Reset();
  EXPECT_FALSE(library->CanUnload()) << "two locks hold";
  factory = library->Factory();
  ASSERT_EQ(factory->LockServer(FALSE), S_OK);
  ASSERT_EQ(factory->LockServer(FALSE), S_OK);
  factory.Reset();
  EXPECT_TRUE(library->CanUnload());

  plugin = Create();
  EXPECT_EQ(plugin->AddRef(), 2u);
  EXPECT_EQ(plugin->Release(), 1u);
  EXPECT_FALSE(library->CanUnload());
  Outcome record = Invoke(*plugin.get(), u"GetData", {});
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(plugin->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Receive()), S_OK);
  plugin.Reset();
  EXPECT_TRUE(library->CanUnload());

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
  HRESULT made = E_FAIL;
  bool ready = true;
  SystemThread([&] {
    const ComForThread apartment;
    ComPtr<IUnknown> none;
    made = library->Factory()->CreateInstance(nullptr, IID_IUnknown, none.ReceiveVoid());
    ready = library->CanUnload();
  });
  EXPECT_EQ(made, RPC_E_WRONG_THREAD);
  EXPECT_FALSE(ready) << "its windows and objects belong to the first thread";
  EXPECT_EQ(host::LivingKitObjects(), 2);
  EXPECT_TRUE(library->CanUnload());
}

TEST_F(ObjectLife, StartUpRunsOncePerUseOfTheLibrary) {
  OfferKits();
  {
    const auto factory = library->Factory();
    EXPECT_TRUE(created_kits.empty()) << "looking at the class starts nothing";
    auto first = Create();
    const std::vector<Text> both = {u"rcFileKit.clsFileKit", u"rcMemKit.clsMemKit"};
    EXPECT_EQ(created_kits, both);
    const auto second = Create();
    first.Reset();
    const auto third = Create();
    EXPECT_EQ(created_kits, both);
    EXPECT_EQ(host::LivingKitObjects(), 2);
  }
  // The state is the library's: it lasts without an object, and ends with its use.
  EXPECT_EQ(host::LivingKitObjects(), 2);
  EXPECT_TRUE(library->CanUnload());
  EXPECT_EQ(host::LivingKitObjects(), 0);
  plugin = Create();
  EXPECT_EQ(created_kits.size(), 4u);
  EXPECT_TRUE(boxes.empty());
}

TEST_F(ObjectLife, TheDialogAndItsValuesOutliveTheObjectAndCom) {
  Start();
  Open([&] {
    robot.Type(u"txtName", u"Kept");
    Hide();
  });
  const HWND dialog = robot.FormWindow();
  ASSERT_NE(dialog, nullptr);
  plugin.Reset();
  // As COM does at its last CoUninitialize, without asking.
  library.reset();
  EXPECT_EQ(robot.FormWindow(), dialog);
  library.emplace();
  plugin = Create();
  library.reset();
  Open([&] {
    EXPECT_EQ(robot.Read(u"txtName", u"text"), u"Kept");
    Hide();
  });
  library.emplace();
  plugin.Reset();
  EXPECT_TRUE(library->CanUnload());
  EXPECT_EQ(robot.FormWindow(), nullptr);
  library.reset();
  EXPECT_EQ(::GetModuleHandleW(L"kvrrcBHDGS.dll"), nullptr) << "nothing is left that holds it";
  library.emplace();
}

TEST_F(ObjectLife, AnObjectMayBeReleasedWithinItsOwnCall) {
  Start();
  bool can_unload = true;
  Open([&] {
    plugin.Reset();
    can_unload = library->CanUnload();
  });
  EXPECT_FALSE(can_unload);
  plugin = Create();
  while_shown = [&] {
    plugin.Reset();
    can_unload = library->CanUnload();
    robot.CloseForm();
  };
  const Variant number = Variant::OfInt32(3);
  const Variant target = ArrayOfVariants({u"", u"abc"});
  Invoke(*plugin.get(), u"LoadInterface", {*number.get(), *number.get(), *target.get()});
  EXPECT_FALSE(can_unload) << "called by name";
  EXPECT_TRUE(boxes.empty());
}

}  // namespace
}  // namespace quill::com

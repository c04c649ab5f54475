// A plug-in and a host that break the contract on purpose: each breach is noticed while it happens
// or at the end, and laid at the door of the side that committed it.
#include "host/win32/plugin_session.h"
#include "tests/server/plugin_bench.h"
#include "tests/server/scripted_object.h"
#include "tests/win32/system_thread.h"

namespace quill::com {
namespace {

using host::PluginClient;
using host::PluginSession;
using host::Side;

// The real library, whose plug-in object is another one.
class LibraryWith final : public host::LoadedLibrary {
 public:
  explicit LibraryWith(IDispatch* plugin) : LoadedLibrary(LibraryPath()), plugin_(plugin) {}
  [[nodiscard]] LateBound MakePlugin() const override { return LateBound(plugin_); }

 private:
  static Text LibraryPath() { return FromUtf8("Z:" QUILL_PLUGIN_LIBRARY); }
  IDispatch* plugin_;
};

class Contract : public testing::Test {
 protected:
  using Step = std::function<void()>;

  // One session in which the plug-in does `during` inside a call of the host, and `afterwards`
  // follows when the call is over.
  void Play(const Step& during, const std::function<void(PluginSession&)>& afterwards = nullptr) {
    log_ = host::ContractLog();
    plugin_->members[u"HideInterface"] = [&](std::span<const VARIANT>) {
      during();
      return Variant();
    };
    PluginSession session(library_, log_, host::HostFolderOfProgram());
    session.HostCall([](PluginClient& plugin) { plugin.HideInterface(); });
    if (afterwards) afterwards(session);
  }
  // True when the only breaches are such ones.
  [[nodiscard]] testing::AssertionResult Noted(Side side, const std::string& what) const {
    if (log_.breaches().empty()) return testing::AssertionFailure() << "nothing is noted";
    for (const host::Breach& breach : log_.breaches()) {
      if (breach.side != side || breach.what.find(what) == std::string::npos) {
        return testing::AssertionFailure() << host::BreachLine(breach);
      }
    }
    return testing::AssertionSuccess();
  }

  static ComPtr<IDispatch> Kit(const wchar_t* name = L"rcFileKit.clsFileKit") {
    CLSID id = {};
    ComPtr<IDispatch> kit;
    EXPECT_EQ(::CLSIDFromProgID(name, &id), S_OK);
    EXPECT_EQ(
        ::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, kit.ReceiveVoid()),
        S_OK);
    return kit;
  }
  static HRESULT Compress(IDispatch& kit) {
    Bstr text(u"text");
    const Variant argument = Variant::ByReference(text.address());
    return Invoke(kit, u"CompressString", {*argument.get()}).result;
  }

  const ComForThread com_;
  const ComPtr<ScriptedObject> plugin_ = ScriptedObject::Make();
  const LibraryWith library_{plugin_.get()};
  host::ContractLog log_;
};

TEST_F(Contract, KeptByBothSidesIsSilent) {
  Play([] {
    EXPECT_EQ(Compress(*Kit().get()), S_OK);
    Kit(L"rcMemKit.clsMemKit");
  });
  EXPECT_TRUE(log_.breaches().empty()) << host::BreachLine(log_.breaches().front());
}

TEST_F(Contract, TheHostsObjectsAreReleasedOnceAndNotUsedAfterwards) {
  ComPtr<IDispatch> kept;
  Play([&] { kept = Kit(); });
  EXPECT_TRUE(Noted(Side::kPlugin, "holds 1 of the host's service objects"));
  kept.Reset();
  host::ForgetReleasedKitObjects();
  EXPECT_EQ(host::LivingKitObjects(), 0);

  Play([] {
    IDispatch* const kit = Kit().Detach();
    EXPECT_EQ(kit->Release(), 0u);
    kit->Release();
  });
  EXPECT_TRUE(Noted(Side::kPlugin, "Release: called after the object's last reference"));
  Play([] {
    IDispatch* const kit = Kit().Detach();
    kit->Release();
    EXPECT_EQ(Compress(*kit), E_UNEXPECTED);
  });
  EXPECT_TRUE(Noted(Side::kPlugin, "CompressString: called after the object's last reference"));
}

TEST_F(Contract, TheHostsObjectsAreCalledInTheRightWayTimeAndPlace) {
  Play([] {
    const auto kit = Kit();
    SystemThread([&] { Compress(*kit.get()); });
  });
  EXPECT_TRUE(Noted(Side::kPlugin, "CompressString: called on another thread"));

  ComPtr<IDispatch> kept;
  Play([&] { kept = Kit(); },
       [&](PluginSession&) {
         Compress(*kept.get());
         kept.Reset();
       });
  EXPECT_TRUE(Noted(Side::kPlugin, "CompressString: called while the host calls nothing"));

  Play([] { Invoke(*Kit().get(), u"CompressString", {*Variant::OfInt32(1).get()}); });
  EXPECT_TRUE(Noted(Side::kPlugin, "argument 0 came as variant type 3"));
  Play([] { Invoke(*Kit().get(), u"CompressString", {}); });
  EXPECT_TRUE(Noted(Side::kPlugin, "another number of arguments"));
}

TEST_F(Contract, TheHostsObjectsAreCreatedInTurnAndInsideACall) {
  Play([] { Kit(L"rcMemKit.clsMemKit"); });
  EXPECT_TRUE(Noted(Side::kPlugin, "creates rcMemKit.clsMemKit out of turn"));
  Play([] { (void)Kit(), Kit(); });
  EXPECT_TRUE(Noted(Side::kPlugin, "creates rcFileKit.clsFileKit out of turn"));
  Play([] {}, [](PluginSession&) { Kit(); });
  EXPECT_TRUE(Noted(Side::kPlugin, "creates rcFileKit.clsFileKit while the host calls nothing"));
}

TEST_F(Contract, NothingOfThePluginOutlivesItsLastObject) {
  HWND dialog = nullptr;
  Play([&] {
    dialog = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr,
                               nullptr);
    ::SetPropW(dialog, L"ControlName", dialog);
  });
  EXPECT_TRUE(Noted(Side::kPlugin, "leaves its dialog behind"));
  ::RemovePropW(dialog, L"ControlName");
  ::DestroyWindow(dialog);

  ComPtr<IClassFactory> factory;
  Play([&] {
    EXPECT_EQ(library_.Entry<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>(
                  "DllGetClassObject")(kClassId, IID_IClassFactory, factory.ReceiveVoid()),
              S_OK);
  });
  EXPECT_TRUE(Noted(Side::kPlugin, "the library cannot be unloaded"));
}

TEST_F(Contract, TheHostCallsOnItsOwnThread) {
  Play([] {},
       [](PluginSession& session) {
         SystemThread(
             [&] { session.HostCall([](PluginClient& plugin) { plugin.HideInterface(); }); });
       });
  EXPECT_TRUE(Noted(Side::kHost, "called the plug-in on another thread"));
}

}  // namespace
}  // namespace quill::com

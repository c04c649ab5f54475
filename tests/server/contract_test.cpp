// A plug-in and a host that break the contract on purpose: each breach is noticed while it happens
// or at the end, and laid at the door of the side that committed it.
#include "host/win32/plugin_session.h"
#include "tests/server/scripted_object.h"

namespace quill::com {
namespace {

using host::PluginClient;
using host::PluginSession;
using host::Side;

// The real library, whose plug-in object is another one.
class LibraryWith final : public TestedLibrary {
 public:
  explicit LibraryWith(IDispatch* plugin) : plugin_(plugin) {}
  [[nodiscard]] LateBound MakePlugin() const override { return LateBound(plugin_); }

 private:
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
  // The only breaches of such a session are these.
  void Expect(Side side, const std::string& what, const Step& during,
              const std::function<void(PluginSession&)>& afterwards = nullptr) {
    Play(during, afterwards);
    EXPECT_FALSE(log_.breaches().empty()) << what;
    for (const host::Breach& breach : log_.breaches()) {
      EXPECT_TRUE(breach.side == side && breach.what.find(what) != std::string::npos)
          << what << "\n  gave: " << host::BreachLine(breach);
    }
  }

  static ComPtr<IDispatch> Kit(TextView name = u"rcFileKit.clsFileKit") {
    return ComPtr<IDispatch>(LateBound::Create(name).object());
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
    Kit(u"rcMemKit.clsMemKit");
  });
  EXPECT_TRUE(log_.breaches().empty()) << host::BreachLine(log_.breaches().front());
}

TEST_F(Contract, BrokenByThePluginIsNoted) {
  ComPtr<IDispatch> kept;
  Expect(Side::kPlugin, "holds 1 of the host's service objects", [&] { kept = Kit(); });
  kept.Reset();
  host::ForgetReleasedKitObjects();
  EXPECT_EQ(host::LivingKitObjects(), 0);
  Expect(Side::kPlugin, "Release: called after the object's last reference", [] {
    IDispatch* const kit = Kit().Detach();
    kit->Release();
    kit->Release();
  });
  Expect(Side::kPlugin, "CompressString: called after the object's last reference", [] {
    IDispatch* const kit = Kit().Detach();
    kit->Release();
    EXPECT_EQ(Compress(*kit), E_UNEXPECTED);
  });
  Expect(Side::kPlugin, "CompressString: called on another thread", [] {
    const auto kit = Kit();
    SystemThread([&] { Compress(*kit.get()); });
  });
  Expect(
      Side::kPlugin, "CompressString: called while the host calls nothing", [&] { kept = Kit(); },
      [&](PluginSession&) {
        Compress(*kept.get());
        kept.Reset();
      });
  Expect(Side::kPlugin, "argument 0 came as variant type 3",
         [] { Invoke(*Kit().get(), u"CompressString", {*Variant::OfInt32(1).get()}); });
  Expect(Side::kPlugin, "another number of arguments",
         [] { Invoke(*Kit().get(), u"CompressString", {}); });
  Expect(Side::kPlugin, "creates rcMemKit.clsMemKit out of turn",
         [] { Kit(u"rcMemKit.clsMemKit"); });
  Expect(Side::kPlugin, "creates rcFileKit.clsFileKit out of turn", [] { (void)Kit(), Kit(); });
  Expect(
      Side::kPlugin, "creates rcFileKit.clsFileKit while the host calls nothing", [] {},
      [](PluginSession&) { Kit(); });

  HWND dialog = nullptr;
  Expect(Side::kPlugin, "leaves its dialog behind", [&] {
    dialog = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr,
                               nullptr);
    ::SetPropW(dialog, L"ControlName", dialog);
  });
  ::RemovePropW(dialog, L"ControlName");
  ::DestroyWindow(dialog);
  ComPtr<IClassFactory> factory;
  Expect(Side::kPlugin, "the library cannot be unloaded", [&] { factory = library_.Factory(); });
}

TEST_F(Contract, BrokenByTheHostIsNoted) {
  Expect(
      Side::kHost, "called the plug-in on another thread", [] {},
      [](PluginSession& session) {
        SystemThread(
            [&] { session.HostCall([](PluginClient& plugin) { plugin.HideInterface(); }); });
      });
}

}  // namespace
}  // namespace quill::com

// The library loaded into this process as COM does it, the host's kits creatable by name, and an
// operator who acknowledges every box and closes the dialog when a test does not say otherwise.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "com/bstr.h"
#include "com/com_ptr.h"
#include "com/identifiers.h"
#include "com/variant.h"
#include "host/kit/file_kit.h"
#include "host/kit/file_storage.h"
#include "host/watch/watched_file_kit.h"
#include "host/win32/host_folder.h"
#include "host/win32/kit_object.h"
#include "host/win32/plugin_library.h"
#include "host/win32/window_robot.h"
#include "host/win32/wine.h"
#include "server/plugin_interface.h"
#include "tests/win32/system_thread.h"
#include "win32/win32_file_system.h"

namespace quill::com {

// The tests register the library and name kits for the whole machine.
class OnlyUnderWine : public testing::Environment {
 public:
  void SetUp() override {
    if (!host::IsWine()) GTEST_SKIP() << "the machine's own classes may be in use";
  }
};
inline testing::Environment* const only_under_wine =
    testing::AddGlobalTestEnvironment(new OnlyUnderWine);

// The real library, loaded as COM does it.
class TestedLibrary : public host::LoadedLibrary {
 public:
  TestedLibrary() : LoadedLibrary(Path()) {}
  [[nodiscard]] static Text Path() { return FromUtf8("Z:" QUILL_PLUGIN_LIBRARY); }

  [[nodiscard]] HRESULT GetClassObject(REFCLSID class_id, REFIID wanted, void** object) const {
    return Entry<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(
        class_id, wanted, object);
  }
  [[nodiscard]] ComPtr<IClassFactory> Factory() const {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(GetClassObject(kClassId, IID_IClassFactory, factory.ReceiveVoid()), S_OK);
    return factory;
  }
};

// What a late-bound call came to.
struct Outcome {
  HRESULT result = S_OK;
  Variant value;
  UINT bad_argument = 99;
  HRESULT raised = S_OK;
  Text source;
  Text description;
  DWORD help_context = 0;
};

[[nodiscard]] inline DISPID IdOf(IDispatch& object, const Text& name) {
  LPOLESTR wide = const_cast<LPOLESTR>(WideOf(name));
  DISPID id = DISPID_UNKNOWN;
  (void)object.GetIDsOfNames(IID_NULL, &wide, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

// `arguments` in calling order; the last ones go by the identifiers in `names`.
inline Outcome Invoke(IDispatch& object, DISPID id, const std::vector<VARIANT>& arguments,
                      std::vector<DISPID> names = {}, WORD flags = DISPATCH_METHOD) {
  std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
  std::vector<DISPID> reversed_names(names.rbegin(), names.rend());
  DISPPARAMS parameters{reversed.data(), reversed_names.data(), static_cast<UINT>(reversed.size()),
                        static_cast<UINT>(reversed_names.size())};
  Outcome outcome;
  EXCEPINFO raised{};
  outcome.result = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                 outcome.value.get(), &raised, &outcome.bad_argument);
  outcome.raised = raised.scode;
  outcome.source = ViewOf(raised.bstrSource);
  outcome.description = ViewOf(raised.bstrDescription);
  outcome.help_context = raised.dwHelpContext;
  for (BSTR text : {raised.bstrSource, raised.bstrDescription, raised.bstrHelpFile}) {
    ::SysFreeString(text);
  }
  return outcome;
}
inline Outcome Invoke(IDispatch& object, const Text& name, const std::vector<VARIANT>& arguments) {
  return Invoke(object, IdOf(object, name), arguments);
}

[[nodiscard]] inline Variant OfObject(IDispatch* object) {
  Variant variant;
  variant.get()->vt = VT_DISPATCH;
  variant.get()->pdispVal = object;
  if (object != nullptr) object->AddRef();
  return variant;
}
[[nodiscard]] inline Variant ByReference(Variant& value) {
  Variant reference;
  reference.get()->vt = VT_VARIANT | VT_BYREF;
  reference.get()->pvarVal = value.get();
  return reference;
}
// The same argument in several forms.
using Forms = std::initializer_list<const Variant*>;

[[nodiscard]] inline Variant OfType(VARTYPE type) {
  Variant variant;
  variant.get()->vt = type;
  return variant;
}
[[nodiscard]] inline Variant LeftOut() {
  Variant variant = OfType(VT_ERROR);
  variant.get()->scode = DISP_E_PARAMNOTFOUND;
  return variant;
}
[[nodiscard]] inline Variant ArrayOfVariants(const std::vector<Text>& texts, LONG lower = 0) {
  Variant array = OfType(VT_ARRAY | VT_VARIANT);
  array.get()->parray =
      ::SafeArrayCreateVector(VT_VARIANT, lower, static_cast<ULONG>(texts.size()));
  for (const Text& text : texts) {
    Variant element = Variant::OfText(text);
    EXPECT_EQ(::SafeArrayPutElement(array.get()->parray, &lower, element.get()), S_OK);
    ++lower;
  }
  return array;
}

class PluginBench : public testing::Test {
 public:
  struct Box {
    Text caption;
    Text text;
  };

  ComForThread com;
  host::KitWatch kit;
  host::ContractLog contract;
  std::vector<Text> created_kits;
  std::vector<Box> boxes;
  std::function<void()> while_shown;  // once, when the dialog is shown
  std::vector<Text> picked;           // in every file dialog; none cancels it
  const host::WindowRobot robot{u"frmrcBHDGS"};
  std::optional<TestedLibrary> library{std::in_place};
  ComPtr<IPlugin> plugin;  // of Start

  // The plug-in takes this program's folder for the host's root.
  PluginBench() { host::PutButtonPictures(host::HostFolderOfProgram()); }
  ~PluginBench() override {
    plugin.Reset();
    EXPECT_TRUE(library->CanUnload()) << "something keeps the library loaded";
    EXPECT_EQ(host::LivingKitObjects(), 0);
    EXPECT_EQ(robot.FormWindow(), nullptr);
    for (const host::Breach& breach : contract.breaches()) {
      ADD_FAILURE() << host::BreachLine(breach);
    }
  }

  void OfferKits() {
    kits_.emplace(host::KitServices{watched_kit_, contract, ::GetCurrentThreadId(),
                                    [this](TextView name) { created_kits.emplace_back(name); }});
  }
  [[nodiscard]] ComPtr<IPlugin> Create() const {
    ComPtr<IPlugin> made;
    EXPECT_EQ(library->Factory()->CreateInstance(nullptr, kInterfaceId, made.ReceiveVoid()), S_OK);
    return made;
  }
  void Start() {
    OfferKits();
    plugin = Create();
  }

  // Opens the dialog for profile 3 and target "abc", lets `step` happen while it is shown, and
  // closes it unless the step did.
  void Open(const std::function<void()>& step = nullptr) {
    while_shown = [this, step] {
      if (step) step();
      if (robot.FormShown()) robot.CloseForm();
    };
    Variant target = ArrayOfVariants({u"", u"abc"});
    EXPECT_EQ(plugin->LoadInterface(3, 0, target.get(), nullptr), S_OK);
    while_shown = nullptr;
    EXPECT_FALSE(robot.FormShown());
  }
  void Hide() { EXPECT_EQ(plugin->HideInterface(nullptr), S_OK); }
  void Reply(TextView text) {
    Bstr reply(text);
    EXPECT_EQ(plugin->RemoteData(reply.address()), S_OK);
    EXPECT_EQ(reply.view(), text) << "the host's text is only read";
  }
  void Push(const Text& button) {
    robot.Press(button);
    robot.Release(button);
  }
  // What the operator of the shown dialog sees: the letters say which of the eight governed options
  // are enabled, in the order of the rights.
  [[nodiscard]] std::string Enabled() const {
    constexpr const char16_t* kOptions[] = {u"lstSession", u"lstMax",   u"cboMods", u"chkWindow",
                                            u"chkDedi",    u"chkSkins", u"chkNova", u"txtPort"};
    std::string enabled;
    for (const char16_t* option : kOptions) {
      enabled += robot.Read(option, u"enabled") == u"true" ? 'e' : '-';
    }
    return enabled;
  }
  // The failures in the boxes since the last call, each as "label: Error 13: Type mismatch, sent".
  std::vector<std::string> TakeReports() {
    std::vector<std::string> reports;
    for (const Box& box : std::exchange(boxes, {})) {
      constexpr TextView kFunction = u"Function/Sub: ";
      const auto lines = Split(box.text, kLineBreak);
      if (box.caption != u"DLL Error!" || lines.size() < 4 || !lines[3].starts_with(kFunction)) {
        continue;
      }
      reports.push_back(ToUtf8(Concat({lines[3].substr(kFunction.size()), u": ", lines[1]})) +
                        (box.text.ends_with(u"Error Report Sent: Yes") ? ", sent" : ", not sent"));
    }
    return reports;
  }

 private:
  void Watch() {
    const host::OpenBox box = host::FindOpenBox();
    if (box.window != nullptr && box.asks_for_file) {
      host::AnswerBox(box, picked);
    } else if (box.window != nullptr) {
      boxes.push_back({box.caption, box.text});
      host::AnswerBox(box);
    } else if (robot.FormShown()) {
      if (const auto step = std::exchange(while_shown, nullptr)) {
        step();
      } else {
        robot.CloseForm();
      }
    }
  }

  win32::Win32FileSystem files_;
  host::DiskStorage storage_{[](TextView path) { return std::filesystem::path(Text(path)); }};
  host::ErrorJournal journal_{host::HostFolderOfProgram(), files_, storage_};
  host::HostFileKit host_kit_{storage_, journal_};
  host::WatchedFileKit watched_kit_{host_kit_, kit};
  std::optional<host::KitClasses> kits_;
  const host::Heartbeat heartbeat_{[this] { Watch(); }};
};

}  // namespace quill::com

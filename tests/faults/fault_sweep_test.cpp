// Every operation with every call that it makes failing in turn: once, and from there on. Whatever
// fails, the operator is told under the right label or the operation is complete, nothing is torn,
// and the next attempt succeeds.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "host/watch/plugin_invariants.h"
#include "tests/faults/fault_bench.h"

namespace quill {
namespace {

using Extent = host::FaultPlan::Extent;

constexpr TextView kQueryFile = u"C:\\Host\\RCData\\reply_kvrBHDGS_GetGameSettingsRem.txt";
constexpr TextView kStartFile = u"C:\\Host\\RCData\\reply_kvrBHDGS_StartGameRem.txt";

using Step = std::function<void(FaultBench& bench)>;

struct Operation {
  const char* name;
  // Runs in a dialog that is shown and filled; otherwise nothing has been called yet.
  bool in_dialog = true;
  // Under which a failure may be reported.
  std::vector<TextView> labels = {};
  // Calls whose failure is nobody's concern, by how they begin.
  std::vector<TextView> silent = {};
  Step prepare = [](FaultBench&) {};
  Step run;
  // Whether it has done all that it has to.
  bool (*is_done)(FaultBench& bench) = [](FaultBench&) { return true; };
};

// The fact is made before any allocation fails.
Step Telling(TextView control, ui::Fact fact) {
  return [=](FaultBench& b) { b.Tell(control, fact); };
}
Step Pressing(TextView button) {
  return [=](FaultBench& b) { b.Press(button); };
}
// The file of the settings folder that the operator picks next, and what it holds; nothing: there
// need be none.
Step Picking(TextView file, std::string bytes = {}) {
  return [=](FaultBench& b) {
    if (!bytes.empty()) b.Write(file, bytes);
    b.toolkit.AnswerNextFileDialog({InSettings(file)});
  };
}

const std::string kSettings =
    "[Settings]\r\ntxtName=Old\r\nlstMax=4\r\nchkLoop=1\r\ncboMods=Team Sabre\r\n";

bool HasSavedThreeMaps(FaultBench& b) {
  return b.Read(u"a.hsf").find("Map2=") != std::string::npos;
}

// How a button looks, and the note that a start is under way.
const std::vector<TextView> kButtonLooks = {u"ReadPicture", u"Sync cmd", u"Sync lblWaiting"};

const std::vector<Operation>& Operations() {
  static const std::vector<Operation> kOperations = {
      {.name = "StartUp",
       .in_dialog = false,
       .labels = {u"SubMain"},
       .prepare = [](FaultBench& b) { b.module.ReleaseHost(); },
       .run = [](FaultBench& b) { b.module.SubMain(); }},
      {.name = "SetPrivisFirst",
       .in_dialog = false,
       .labels = {u"SetPrivis", u"FormLoad_ERROR"},
       .run = [](FaultBench& b) { b.plug_in().SetPrivis(b.rights, nullptr, false); },
       .is_done = [](FaultBench& b) { return b.dialog() != nullptr; }},
      {.name = "SetPrivis",
       .labels = {u"SetPrivis"},
       .run = [](FaultBench& b) { b.plug_in().SetPrivis(b.rights, nullptr, false); },
       .is_done = [](FaultBench& b) { return b.Option(u"txtPort").enabled(); }},
      {.name = "LoadInterface",
       .in_dialog = false,
       .labels = {u"LoadInterface", u"FormLoad_ERROR"},
       .silent = {u"Sync frmrcBHDGS", u"Sync lblWaiting"},
       .run = [](FaultBench& b) { b.Open([] {}); },
       .is_done = [](FaultBench& b) { return b.ReadAt(kQueryFile).size() == 44; }},
      {.name = "LoadInterfaceAgain",
       .labels = {u"LoadInterface"},
       .run = [](FaultBench& b) { b.Open([] {}); },
       .is_done = [](FaultBench& b) { return b.rotation().empty(); }},
      {.name = "HideInterface",
       .silent = {u"Sync frmrcBHDGS"},
       .run = [](FaultBench& b) { b.plug_in().HideInterface(); },
       .is_done = [](FaultBench& b) { return !b.dialog()->shown(); }},
      {.name = "SettingsReply",
       .labels = {u"RemoteData", u"SetMaps", u"cboMods_Click"},
       .run = [](FaultBench& b) { b.plug_in().RemoteData(b.settings_reply); },
       .is_done = [](FaultBench& b) { return b.Value(u"txtPort") == "17500"; }},
      {.name = "SettingsReplyFirst",
       .in_dialog = false,
       .labels = {u"RemoteData", u"SetMaps", u"FormLoad_ERROR"},
       .prepare = [](FaultBench& b) { b.module.PendingCommand = kLoadFormCommand; },
       .run = [](FaultBench& b) { b.plug_in().RemoteData(b.settings_reply); },
       .is_done = [](FaultBench& b) { return b.module.maps.server.maps().size() == 2; }},
      {.name = "StartReplyFailed",
       .labels = {u"RemoteData"},
       .silent = {u"Sync frmrcBHDGS", u"Sync lblWaiting"},
       .prepare = Pressing(u"cmdStart"),
       .run = [](FaultBench& b) { b.plug_in().RemoteData(u"0"); },
       .is_done = [](FaultBench& b) { return b.dialog() == nullptr; }},
      {.name = "Tab",
       .labels = {u"tsMain_Click"},
       .run = Telling(u"tsMain", ui::ItemChosen{2}),
       .is_done = [](FaultBench& b) { return b.dialog()->fmeMisc.visible(); }},
      {.name = "Mod",
       .labels = {u"SetMaps", u"cboMods_Click"},
       .prepare = Telling(u"tsMain", ui::ItemChosen{0}),
       .run = Telling(u"cboMods", ui::ItemChosen{1}),
       .is_done = [](FaultBench& b) { return b.module.maps.catalogue.size() == 185; }},
      {.name = "Scroll",
       .labels = {u"lstMax_Scroll"},
       .prepare = Telling(u"tsMain", ui::ItemChosen{0}),
       .run = Telling(u"lstMax", ui::ScrolledTo{7}),
       .is_done = [](FaultBench& b) { return b.Value(u"lstMax") == "7"; }},
      {.name = "Typing",
       .labels = {u"txtCountry_Change"},
       .prepare = Telling(u"tsMain", ui::ItemChosen{0}),
       .run = Telling(u"txtCountry", ui::TextEdited{u"abc"}),
       .is_done = [](FaultBench& b) { return b.Value(u"txtCountry").size() == 2; }},
      {.name = "NextGameType",
       .labels = {u"SetMaps", u"cmdRight_MouseUp", u"cmdRight_MouseDown"},
       .silent = kButtonLooks,
       .run = Pressing(u"cmdRight")},
      {.name = "AddOne",
       .labels = {u"lstAvlMapsDblClick", u"BuildMapList", u"lstAvlMaps_DblClick"},
       .run = Telling(u"lstAvlMaps", ui::RowDoubleClicked{2})},
      {.name = "AddSelected",
       .labels = {u"lstAvlMaps_KeyPress", u"BuildMapList"},
       .prepare = Telling(u"lstAvlMaps", ui::RowsSelected{{0, 2, 4}, 4}),
       .run = Telling(u"lstAvlMaps", ui::KeyPressed{u'='})},
      {.name = "AddToTheLimit",
       .labels = {u"lstAvlMaps_KeyPress", u"BuildMapList"},
       .prepare =
           [](FaultBench& b) {
             auto& selected = b.module.maps.selected;
             selected.Replace(std::vector<SelectedMap>(253, selected.At(1)));
             b.dialog()->BuildMapList();
             b.Tell(u"lstAvlMaps", ui::RowsSelected{{0, 2, 4}, 4});
           },
       .run = Telling(u"lstAvlMaps", ui::KeyPressed{u'+'}),
       .is_done = [](FaultBench& b) { return b.rotation().size() == 255; }},
      {.name = "RemoveOne",
       .labels = {u"lstSelMapsDblClick", u"BuildMapList", u"lstSelMaps_DblClick"},
       .run = Telling(u"lstSelMaps", ui::RowDoubleClicked{1})},
      {.name = "RemoveSelected",
       .labels = {u"lstSelMaps_KeyPress", u"BuildMapList"},
       .prepare = Telling(u"lstSelMaps", ui::RowsSelected{{0, 2}, 2}),
       .run = Telling(u"lstSelMaps", ui::KeyPressed{u'-'})},
      {.name = "MoveSelected",
       .labels = {u"lstSelMaps_KeyDown", u"BuildMapList"},
       .prepare = Telling(u"lstSelMaps", ui::RowsSelected{{1}, 1}),
       .run = Telling(u"lstSelMaps", ui::KeyStruck{{ui::kUpKey, ui::kAltHeld}})},
      {.name = "Undo",
       .labels = {u"lstSelMaps_KeyDown", u"BuildMapList"},
       .prepare = Telling(u"lstAvlMaps", ui::RowDoubleClicked{2}),
       .run = Telling(u"lstSelMaps", ui::KeyStruck{{u'Z', ui::kCtrlHeld}})},
      {.name = "ClickSelected",
       .labels = {u"lstSelMaps_Click"},
       .run = Telling(u"lstSelMaps", ui::RowsSelected{{1}, 1}),
       .is_done = [](FaultBench& b) { return b.dialog()->lstSelMaps.tooltip() == u"Deathmatch"; }},
      {.name = "Shuffle",
       .labels = {u"cmdRandomize", u"BuildMapList", u"cmdRandomize_Click"},
       .run = Telling(u"cmdRandomize", ui::Clicked{}),
       .is_done = [](FaultBench& b) { return b.rotation().size() == 3; }},
      {.name = "Start",
       .labels = {u"cmdStart_Error", u"Enc64", u"cmdStart_MouseUp", u"cmdStart_MouseDown"},
       .silent = kButtonLooks,
       .run = Pressing(u"cmdStart"),
       .is_done = [](FaultBench& b) { return b.ReadAt(kStartFile).size() > 100; }},
      {.name = "Save",
       .labels = {u"cmdSave", u"cmdSave_MouseUp", u"cmdSave_MouseDown"},
       .silent = kButtonLooks,
       .prepare = Picking(u"a.hsf"),
       .run = Pressing(u"cmdSave"),
       .is_done = HasSavedThreeMaps},
      {.name = "SaveOverLongerFile",
       .labels = {u"cmdSave", u"cmdSave_MouseUp", u"cmdSave_MouseDown"},
       .silent = {u"ReadPicture", u"Sync cmd", u"GetIniSection", u"ParseIniKey"},
       .prepare = Picking(u"a.hsf", kSettings + "Map0=0[-]0[-]A\r\nMap1=0[-]0[-]B\r\n"
                                                "Map7=0[-]0[-]C\r\n"),
       .run = Pressing(u"cmdSave"),
       .is_done = HasSavedThreeMaps},
      {.name = "Load",
       .labels = {u"cmdLoad", u"BuildMapList", u"SetMaps", u"cmdLoad_MouseUp",
                  u"cmdLoad_MouseDown"},
       .silent = kButtonLooks,
       .prepare = Picking(u"a.hsf", kSettings + "Map0=0[-]0[-]DMK_01A.BMS\r\n"
                                                "Map1=7[-]0[-]missing\r\n"),
       .run = Pressing(u"cmdLoad"),
       .is_done = [](FaultBench& b) { return b.rotation().size() == 1; }},
      {.name = "LoadMaps",
       .labels = {u"cmdLoadMaps", u"cmdLoadMaps_MouseUp", u"cmdLoadMaps_MouseDown"},
       .silent = kButtonLooks,
       .prepare =
           Picking(u"a.mpl", "0[-]0[-]DMK_01A.BMS\r\n\r\n5[-]1[-]sv.bms\r\n0[-]0[-]none\r\n"),
       .run = Pressing(u"cmdLoadMaps"),
       .is_done = [](FaultBench& b) { return b.rotation().size() == 2; }},
      {.name = "Cancel",
       .labels = {u"Form_Unload", u"cmdCancel_MouseUp", u"cmdCancel_MouseDown"},
       .silent = kButtonLooks,
       .run = Pressing(u"cmdCancel"),
       .is_done = [](FaultBench& b) { return b.dialog() == nullptr; }},
  };
  return kOperations;
}

const struct {
  const char* name;
  RuntimeError error;
} kSources[] = {
    {"FileKit", RuntimeError(-2147220991, u"the kit's own failure")},
    {"FileSystem", RuntimeError(ErrorNumber::kPermissionDenied)},
    {"Toolkit", RuntimeError(ErrorNumber::kInternalError)},
    {"Allocator", RuntimeError(ErrorNumber::kOutOfMemory)},
    {"Host", RuntimeError(ErrorNumber::kCannotCreateObject)},
};

// One run of one operation with one fault.
class Attempt {
 public:
  Attempt(const Operation& operation, Source source, int nth, Extent extent)
      : operation_(operation), source_(source), nth_(nth), extent_(extent) {}

  // False when nothing has failed: the operation makes fewer calls.
  bool Run() {
    if (operation_.in_dialog) {
      bench_.OpenFilled([&] { FailOnce(); });
    } else {
      FailOnce();
    }
    if (bench_.dialog() != nullptr) {
      former_ = bench_.module.dialog;
      bench_.dialog()->Unload();
    }
    bench_.toolkit.RunDeferred();
    EXPECT_TRUE(former_.expired()) << "the dialog is kept";
    EXPECT_EQ(bench_.files.open_readers(), 0);
    static_cast<void>(bench_.TakeReports());
    // What comes of a dialog that could not be made is the same whoever asked for it.
    const std::string_view name = operation_.name;
    if (name == "SetPrivisFirst" || name == "SettingsReplyFirst") return strike_.count > 0;
    bench_.module.SubMain();
    WholeJob();
    return strike_.count > 0;
  }

 private:
  // Opens the dialog, fills it, selects maps, starts the game and takes the answer.
  void WholeJob() {
    SCOPED_TRACE("the whole job afterwards");
    bench_.OpenFilled([&] {
      EXPECT_EQ(bench_.ReadAt(kQueryFile), "Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3");
      EXPECT_EQ(bench_.rotation().size(), 3u);
      Invariants({});
      bench_.Press(u"cmdStart");
      EXPECT_TRUE(bench_.ReadAt(kStartFile).starts_with("Plugin_kvrBHDGS_StartGameRem_abc_VB6_3_"));
      EXPECT_EQ(bench_.toolkit.screen_pointer(), ui::Pointer::kBusy);
      bench_.plug_in().RemoteData(u"1");
      EXPECT_EQ(bench_.dialog(), nullptr);
    });
    Invariants({});
    EXPECT_EQ(bench_.Boxes(), FaultBench::Strings());
  }

  void Invariants(const host::Expectations& expected) {
    for (const Text& broken : host::BrokenInvariants(bench_.module, bench_.toolkit, expected)) {
      ADD_FAILURE() << ToUtf8(broken);
    }
  }

  void FailOnce() {
    operation_.prepare(bench_);
    const std::vector<Text> before = bench_.TakeReports();
    EXPECT_TRUE(before.empty()) << ToUtf8(before.front());
    bench_.watch.failures.clear();
    former_ = bench_.module.dialog;
    const RuntimeError& error = kSources[static_cast<std::size_t>(source_)].error;
    strike_ = bench_.RunFailing(source_, nth_, extent_, error, [&] {
      try {
        operation_.run(bench_);
      } catch (...) {
        // Members without a trap of their own let the host know.
        escaped_ = true;
      }
    });
    SCOPED_TRACE("first failure: " + ToUtf8(strike_.first));
    Judge();
    if (strike_.count > 0) Again();
  }

  void Judge() {
    const std::vector<Text> reports = bench_.TakeReports();
    reported_.assign(reports.begin(), reports.end());
    EXPECT_FALSE(escaped_ && operation_.labels.size() > 0) << "a failure reached the host";
    for (const Text& label : reports) {
      const bool known =
          std::ranges::find(operation_.labels, TextView(label)) != operation_.labels.end() ||
          (source_ == Source::kAllocator && label == u"(out of memory)");
      EXPECT_TRUE(known) << ToUtf8(label);
    }
    if (IsRefused()) return Whole();
    if (strike_.count == 0) {
      EXPECT_TRUE(reports.empty()) << "a report without a failure: " << ToUtf8(reports.front());
      EXPECT_TRUE(operation_.is_done(bench_));
    } else {
      const bool is_silent = std::ranges::any_of(
          operation_.silent, [&](TextView call) { return strike_.first.starts_with(call); });
      const bool box_failed = strike_.first.starts_with(u"ShowMessage DLL Error!");
      const bool unseen = extent_ == Extent::kFromThereOn && source_ == Source::kToolkit;
      if (reports.empty() && !is_silent && !box_failed && !escaped_ && !unseen) {
        EXPECT_TRUE(source_ == Source::kAllocator && operation_.is_done(bench_))
            << "nobody was told, and it is not done";
      }
      if (extent_ == Extent::kOnce) {
        EXPECT_LE(reports.size(), IsHalfBuilt() ? 2u : 1u);
        if (source_ != Source::kAllocator && source_ != Source::kHost && !box_failed) {
          EXPECT_TRUE(bench_.all_told_as_sent);
          EXPECT_EQ(bench_.watch.failures.size(), reports.size());
        }
      }
      for (const host::LoggedFailure& failure : bench_.watch.failures) {
        EXPECT_TRUE(failure.line > 0 || failure.label == u"Enc64") << ToUtf8(failure.label);
      }
    }
    Whole();
  }

  // A dialog that is shown cannot be shown once more, which is reported.
  [[nodiscard]] bool IsRefused() const {
    return std::string_view(operation_.name) == "LoadInterfaceAgain";
  }
  // A dialog that came up half built stays so, and what needs the rest of it fails as well.
  [[nodiscard]] bool IsHalfBuilt() const {
    return bench_.module.dialog != nullptr && bench_.module.dialog->game_types().empty();
  }
  [[nodiscard]] bool WasReported(TextView label) const {
    return std::ranges::find(reported_, label) != reported_.end();
  }

  // The state right after the failure.
  void Whole() {
    const std::string name = operation_.name;
    const bool failed = !reported_.empty() || strike_.count > 0;
    host::Expectations expected;
    expected.toolkit_is_whole = source_ != Source::kToolkit || strike_.count == 0;
    const bool is_load = name.starts_with("Load");
    expected.rotation_is_shown =
        !(failed && (is_load || WasReported(u"BuildMapList") || WasReported(u"(out of memory)"))) &&
        name != "LoadInterfaceAgain" && expected.toolkit_is_whole;
    expected.available_maps_are_shown =
        !(failed && (name.starts_with("Settings") || WasReported(u"SetMaps") ||
                     WasReported(u"cboMods_Click") || WasReported(u"(out of memory)"))) &&
        expected.toolkit_is_whole;
    Invariants(expected);
    Pointers();
    Files();
  }

  void Pointers() {
    const std::string name = operation_.name;
    if (bench_.dialog() == nullptr) return;
    const bool waits = name == "LoadInterface" && !WasReported(u"LoadInterface");
    EXPECT_TRUE(waits || bench_.dialog()->pointer() == ui::Pointer::kDefault);
    if (name == "Start" && source_ != Source::kToolkit) {
      const bool pending = bench_.module.PendingCommand == kStartGameCommand;
      EXPECT_EQ(bench_.toolkit.screen_pointer() == ui::Pointer::kBusy, pending);
    }
  }

  // Old, empty (as the host is handed it) or new, and every line of a settings file whole.
  void Files() {
    const auto is_whole = [](const std::string& text, std::string_view start) {
      return text == "(none)" || text.empty() || text.starts_with(start);
    };
    EXPECT_TRUE(is_whole(bench_.ReadAt(kQueryFile), "Plugin_kvrBHDGS_GetGameSettingsRem_abc_"));
    EXPECT_TRUE(is_whole(bench_.ReadAt(kStartFile), "Plugin_kvrBHDGS_StartGameRem_abc_VB6_3_"));
    const std::string settings = bench_.Read(u"a.hsf");
    EXPECT_TRUE(is_whole(settings, "[Settings]\r\ntxt"));
    if (std::string_view(operation_.name) != "SaveOverLongerFile") return;
    const auto is_old = [&](const std::string& text) { return text.find("Map7=") != text.npos; };
    EXPECT_TRUE(is_old(settings) || is_old(bench_.Read(u"a.hsf.bak")))
        << "the former settings are lost";
    EXPECT_TRUE(settings != "(none)" || extent_ != Extent::kOnce);
  }

  // The same at once, with nothing failing.
  void Again() {
    if (operation_.in_dialog && bench_.dialog() == nullptr) return;
    if (IsHalfBuilt()) return;
    if (bench_.toolkit.unused_answers() == 0) operation_.prepare(bench_);
    static_cast<void>(bench_.TakeReports());
    try {
      operation_.run(bench_);
    } catch (const RuntimeError& error) {
      ADD_FAILURE() << error.what();
    }
    const std::vector<Text> reports = bench_.TakeReports();
    EXPECT_EQ(reports.size(), IsRefused() ? 1u : 0u)
        << "again: " << (reports.empty() ? "" : ToUtf8(reports.front()));
    EXPECT_TRUE(operation_.is_done(bench_)) << "again";
  }

  const Operation& operation_;
  Source source_;
  int nth_;
  Extent extent_;
  FaultBench bench_;
  FaultBench::Strike strike_;
  std::vector<Text> reported_;
  std::weak_ptr<frmrcBHDGS> former_;
  bool escaped_ = false;
};

using FaultSweep = testing::TestWithParam<std::tuple<std::size_t, std::size_t>>;

TEST_P(FaultSweep, IsToldOrHarmless) {
  const Operation& operation = Operations()[std::get<0>(GetParam())];
  const auto source = static_cast<Source>(std::get<1>(GetParam()));
  for (const Extent extent : {Extent::kOnce, Extent::kFromThereOn}) {
    for (int nth = 1; !HasFailure(); ++nth) {
      SCOPED_TRACE(std::to_string(nth) + (extent == Extent::kOnce ? " once" : " from there on"));
      if (!Attempt(operation, source, nth, extent).Run()) break;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, FaultSweep,
                         testing::Combine(testing::Range(std::size_t{0}, Operations().size()),
                                          testing::Range(std::size_t{0}, std::size(kSources))),
                         [](const auto& tested) {
                           return std::string(Operations()[std::get<0>(tested.param)].name) +
                                  kSources[std::get<1>(tested.param)].name;
                         });

}  // namespace
}  // namespace quill

// Every operation with every call that it makes failing in turn: once, and from there on. Whatever
// fails, the operator is told under the right label or the operation is complete, nothing is torn,
// and the next attempt succeeds.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "tests/faults/fault_bench.h"

namespace quill {
namespace {

using Extent = host::FaultPlan::Extent;
using host::BrokenInvariants;
using host::Expectations;

constexpr TextView kSettingsFile = u"C:\\Host\\profiles\\3\\settings\\a.hsf";
constexpr TextView kMapListFile = u"C:\\Host\\profiles\\3\\settings\\a.mpl";
constexpr TextView kQueryFile = u"C:\\Host\\RCData\\reply_kvrBHDGS_GetGameSettingsRem.txt";
constexpr TextView kStartFile = u"C:\\Host\\RCData\\reply_kvrBHDGS_StartGameRem.txt";

// Made before any allocation fails.
const ui::Fact kSecondRow = ui::RowsSelected{{1}, 1};

enum class Where : std::uint8_t {
  kUnopened,  // nothing has been called yet
  kFilled,    // in a dialog that is shown and filled
};

struct Operation {
  const char* name;
  Where where = Where::kFilled;
  // Under which a failure may be reported.
  std::vector<TextView> labels = {};
  // Calls whose failure is nobody's concern, by how they begin.
  std::vector<TextView> silent = {};
  void (*prepare)(FaultBench& bench) = [](FaultBench&) {};
  void (*run)(FaultBench& bench);
  // Whether it has done all that it has to.
  bool (*is_done)(FaultBench& bench) = [](FaultBench&) { return true; };
};

void WriteSettings(FaultBench& bench, std::string_view maps) {
  bench.memory.MakeFolders(u"C:\\Host\\profiles\\3\\settings");
  bench.memory.SetContents(kSettingsFile,
                           std::string("[Settings]\r\ntxtName=Old\r\nlstMax=4\r\nchkLoop=1\r\n"
                                       "cboMods=Team Sabre\r\n") +
                               std::string(maps));
}

template <class T>
const T& Option(FaultBench& bench, TextView key) {
  return bench.dialog()->Get<T>(key);
}

// How a button looks, and the note that a start is under way.
const std::vector<TextView> kButtonLooks = {u"ReadPicture", u"Sync cmd", u"MakePeer lblWaiting",
                                            u"Sync lblWaiting"};

const std::vector<Operation>& Operations() {
  static const std::vector<Operation> kOperations = {
      {.name = "StartUp",
       .where = Where::kUnopened,
       .labels = {u"SubMain"},
       .prepare = [](FaultBench& b) { b.module.ReleaseHost(); },
       .run = [](FaultBench& b) { b.module.SubMain(); }},
      {.name = "SetPrivisFirst",
       .where = Where::kUnopened,
       .labels = {u"SetPrivis", u"FormLoad_ERROR"},
       .run = [](FaultBench& b) { b.plug_in().SetPrivis(b.rights, nullptr, false); },
       .is_done = [](FaultBench& b) { return b.dialog() != nullptr; }},
      {.name = "SetPrivis",
       .labels = {u"SetPrivis"},
       .run = [](FaultBench& b) { b.plug_in().SetPrivis(b.rights, nullptr, false); },
       .is_done = [](FaultBench& b) { return Option<ui::Control>(b, u"txtPort").enabled(); }},
      {.name = "LoadInterface",
       .where = Where::kUnopened,
       .labels = {u"LoadInterface", u"FormLoad_ERROR"},
       .silent = {u"Sync frmrcBHDGS"},
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
       .is_done =
           [](FaultBench& b) { return Option<ui::TextBox>(b, u"txtPort").text() == u"17500"; }},
      {.name = "SettingsReplyFirst",
       .where = Where::kUnopened,
       .labels = {u"RemoteData", u"SetMaps", u"FormLoad_ERROR"},
       .prepare = [](FaultBench& b) { b.module.PendingCommand = kLoadFormCommand; },
       .run = [](FaultBench& b) { b.plug_in().RemoteData(b.settings_reply); },
       .is_done = [](FaultBench& b) { return b.module.maps.server.maps().size() == 2; }},
      {.name = "StartReplyFailed",
       .labels = {u"RemoteData"},
       .silent = {u"Sync frmrcBHDGS", u"Sync lblWaiting"},
       .prepare = [](FaultBench& b) { b.Press(u"cmdStart"); },
       .run = [](FaultBench& b) { b.plug_in().RemoteData(u"0"); },
       .is_done = [](FaultBench& b) { return b.dialog() == nullptr; }},
      {.name = "Tab",
       .labels = {u"tsMain_Click"},
       .run = [](FaultBench& b) { b.Tell(u"tsMain", ui::ItemChosen{2}); },
       .is_done = [](FaultBench& b) { return b.dialog()->fmeMisc.visible(); }},
      {.name = "Mod",
       .labels = {u"SetMaps", u"cboMods_Click"},
       .prepare = [](FaultBench& b) { b.Tell(u"tsMain", ui::ItemChosen{0}); },
       .run = [](FaultBench& b) { b.Tell(u"cboMods", ui::ItemChosen{1}); },
       .is_done = [](FaultBench& b) { return b.module.maps.catalogue.size() == 185; }},
      {.name = "Scroll",
       .labels = {u"lstMax_Scroll"},
       .prepare = [](FaultBench& b) { b.Tell(u"tsMain", ui::ItemChosen{0}); },
       .run = [](FaultBench& b) { b.Tell(u"lstMax", ui::ScrolledTo{7}); },
       .is_done = [](FaultBench& b) { return Option<ui::ListBox>(b, u"lstMax").ListIndex() == 7; }},
      {.name = "Typing",
       .labels = {u"txtCountry_Change"},
       .prepare = [](FaultBench& b) { b.Tell(u"tsMain", ui::ItemChosen{0}); },
       .run = [](FaultBench& b) { b.Tell(u"txtCountry", ui::TextEdited{u"abc"}); },
       .is_done =
           [](FaultBench& b) { return Option<ui::TextBox>(b, u"txtCountry").text().size() == 2; }},
      {.name = "NextGameType",
       .labels = {u"SetMaps", u"cmdRight_MouseUp", u"cmdRight_MouseDown"},
       .silent = kButtonLooks,
       .run = [](FaultBench& b) { b.Press(u"cmdRight"); }},
      {.name = "AddOne",
       .labels = {u"lstAvlMapsDblClick", u"BuildMapList", u"lstAvlMaps_DblClick"},
       .run = [](FaultBench& b) { b.Tell(u"lstAvlMaps", ui::RowDoubleClicked{2}); }},
      {.name = "AddSelected",
       .labels = {u"lstAvlMaps_KeyPress", u"BuildMapList"},
       .prepare =
           [](FaultBench& b) {
             b.SelectRows(u"lstAvlMaps", {0, 2, 4});
           },
       .run = [](FaultBench& b) { b.Tell(u"lstAvlMaps", ui::KeyPressed{u'='}); }},
      {.name = "AddToTheLimit",
       .labels = {u"lstAvlMaps_KeyPress", u"BuildMapList"},
       .prepare =
           [](FaultBench& b) {
             auto& selected = b.module.maps.selected;
             selected.Replace(std::vector<SelectedMap>(253, selected.At(1)));
             b.dialog()->BuildMapList();
             b.SelectRows(u"lstAvlMaps", {0, 2, 4});
           },
       .run = [](FaultBench& b) { b.Tell(u"lstAvlMaps", ui::KeyPressed{u'+'}); },
       .is_done = [](FaultBench& b) { return b.rotation().size() == 255; }},
      {.name = "RemoveOne",
       .labels = {u"lstSelMapsDblClick", u"BuildMapList", u"lstSelMaps_DblClick"},
       .run = [](FaultBench& b) { b.Tell(u"lstSelMaps", ui::RowDoubleClicked{1}); }},
      {.name = "RemoveSelected",
       .labels = {u"lstSelMaps_KeyPress", u"BuildMapList"},
       .prepare =
           [](FaultBench& b) {
             b.SelectRows(u"lstSelMaps", {0, 2});
           },
       .run = [](FaultBench& b) { b.Tell(u"lstSelMaps", ui::KeyPressed{u'-'}); }},
      {.name = "MoveSelected",
       .labels = {u"lstSelMaps_KeyDown", u"BuildMapList"},
       .prepare = [](FaultBench& b) { b.SelectRows(u"lstSelMaps", {1}); },
       .run =
           [](FaultBench& b) {
             b.Tell(u"lstSelMaps", ui::KeyStruck{{ui::kUpKey, ui::kAltHeld}});
           }},
      {.name = "Undo",
       .labels = {u"lstSelMaps_KeyDown", u"BuildMapList"},
       .prepare = [](FaultBench& b) { b.Tell(u"lstAvlMaps", ui::RowDoubleClicked{2}); },
       .run =
           [](FaultBench& b) {
             b.Tell(u"lstSelMaps", ui::KeyStruck{{u'Z', ui::kCtrlHeld}});
           }},
      {.name = "ClickSelected",
       .labels = {u"lstSelMaps_Click"},
       .run = [](FaultBench& b) { b.Tell(u"lstSelMaps", kSecondRow); },
       .is_done = [](FaultBench& b) { return b.dialog()->lstSelMaps.tooltip() == u"Deathmatch"; }},
      {.name = "Shuffle",
       .labels = {u"cmdRandomize", u"BuildMapList", u"cmdRandomize_Click"},
       .run = [](FaultBench& b) { b.Tell(u"cmdRandomize", ui::Clicked{}); },
       .is_done = [](FaultBench& b) { return b.rotation().size() == 3; }},
      {.name = "Start",
       .labels = {u"cmdStart_Error", u"Enc64", u"cmdStart_MouseUp", u"cmdStart_MouseDown"},
       .silent = kButtonLooks,
       .run = [](FaultBench& b) { b.Press(u"cmdStart"); },
       .is_done = [](FaultBench& b) { return b.ReadAt(kStartFile).size() > 100; }},
      {.name = "Save",
       .labels = {u"cmdSave", u"cmdSave_MouseUp", u"cmdSave_MouseDown"},
       .silent = kButtonLooks,
       .prepare = [](FaultBench& b) { b.toolkit.AnswerNextFileDialog({Text(kSettingsFile)}); },
       .run = [](FaultBench& b) { b.Press(u"cmdSave"); },
       .is_done =
           [](FaultBench& b) {
             return b.ReadAt(kSettingsFile).find("Map2=") != std::string::npos;
           }},
      {.name = "SaveOverLongerFile",
       .labels = {u"cmdSave", u"cmdSave_MouseUp", u"cmdSave_MouseDown"},
       .silent = {u"ReadPicture", u"Sync cmd"},
       .prepare =
           [](FaultBench& b) {
             WriteSettings(b, "Map0=0[-]0[-]A\r\nMap1=0[-]0[-]B\r\nMap7=0[-]0[-]C\r\n");
             b.toolkit.AnswerNextFileDialog({Text(kSettingsFile)});
           },
       .run = [](FaultBench& b) { b.Press(u"cmdSave"); },
       .is_done =
           [](FaultBench& b) {
             return b.ReadAt(kSettingsFile).find("Map2=") != std::string::npos;
           }},
      {.name = "Load",
       .labels = {u"cmdLoad", u"BuildMapList", u"SetMaps", u"cmdLoad_MouseUp",
                  u"cmdLoad_MouseDown"},
       .silent = kButtonLooks,
       .prepare =
           [](FaultBench& b) {
             WriteSettings(b, "Map0=0[-]0[-]DMK_01A.BMS\r\nMap1=7[-]0[-]missing\r\n");
             b.toolkit.AnswerNextFileDialog({Text(kSettingsFile)});
           },
       .run = [](FaultBench& b) { b.Press(u"cmdLoad"); },
       .is_done = [](FaultBench& b) { return b.rotation().size() == 1; }},
      {.name = "LoadMaps",
       .labels = {u"cmdLoadMaps", u"cmdLoadMaps_MouseUp", u"cmdLoadMaps_MouseDown"},
       .silent = kButtonLooks,
       .prepare =
           [](FaultBench& b) {
             b.memory.MakeFolders(u"C:\\Host\\profiles\\3\\settings");
             b.memory.SetContents(kMapListFile,
                                  "0[-]0[-]DMK_01A.BMS\r\n\r\n5[-]1[-]sv.bms\r\n0[-]0[-]none\r\n");
             b.toolkit.AnswerNextFileDialog({Text(kMapListFile)});
           },
       .run = [](FaultBench& b) { b.Press(u"cmdLoadMaps"); },
       .is_done = [](FaultBench& b) { return b.rotation().size() == 2; }},
      {.name = "Cancel",
       .labels = {u"Form_Unload", u"cmdCancel_MouseUp", u"cmdCancel_MouseDown"},
       .silent = kButtonLooks,
       .run = [](FaultBench& b) { b.Press(u"cmdCancel"); },
       .is_done = [](FaultBench& b) { return b.dialog() == nullptr; }},
  };
  return kOperations;
}

const char* NameOf(Source source) {
  constexpr const char* kNames[] = {"FileKit", "FileSystem", "Toolkit", "Allocator", "Host"};
  return kNames[static_cast<std::size_t>(source)];
}

// One run of one operation with one fault.
class Attempt {
 public:
  Attempt(const Operation& operation, Source source, int nth, Extent extent,
          const RuntimeError& error)
      : operation_(operation), source_(source), nth_(nth), extent_(extent), error_(error) {}

  // False when nothing has failed: the operation makes fewer calls.
  bool Run() {
    if (operation_.where == Where::kFilled) {
      bench_.OpenFilled([&] { FailOnce(); });
      bench_.notices.clear();
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
    EXPECT_EQ(bench_.WholeJob(), "");
    return strike_.count > 0;
  }

 private:
  void FailOnce() {
    operation_.prepare(bench_);
    const std::vector<Text> before = bench_.TakeReports();
    EXPECT_TRUE(before.empty()) << ToUtf8(before.front());
    bench_.watch.failures.clear();
    former_ = bench_.module.dialog;
    strike_ = bench_.RunFailing(source_, nth_, extent_, error_, [&] {
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
    Expectations expected;
    expected.toolkit_is_whole = source_ != Source::kToolkit || strike_.count == 0;
    const bool is_load = name.starts_with("Load");
    expected.rotation_is_shown =
        !(failed && (is_load || WasReported(u"BuildMapList") || WasReported(u"(out of memory)"))) &&
        name != "LoadInterfaceAgain" && expected.toolkit_is_whole;
    expected.available_maps_are_shown =
        !(failed && (name.starts_with("Settings") || WasReported(u"SetMaps") ||
                     WasReported(u"cboMods_Click") || WasReported(u"(out of memory)"))) &&
        expected.toolkit_is_whole;
    for (const Text& broken : BrokenInvariants(bench_.module, bench_.toolkit, expected)) {
      ADD_FAILURE() << ToUtf8(broken);
    }
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
    const std::string settings = bench_.ReadAt(kSettingsFile);
    EXPECT_TRUE(is_whole(settings, "[Settings]\r\ntxt"));
    if (std::string_view(operation_.name) != "SaveOverLongerFile") return;
    const auto is_old = [&](const std::string& text) { return text.find("Map7=") != text.npos; };
    EXPECT_TRUE(is_old(settings) || is_old(bench_.ReadAt(Concat({kSettingsFile, u".bak"}))))
        << "the former settings are lost";
    EXPECT_TRUE(settings != "(none)" || extent_ != Extent::kOnce);
  }

  // The same at once, with nothing failing.
  void Again() {
    if (operation_.where == Where::kFilled && bench_.dialog() == nullptr) return;
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
  RuntimeError error_;
  FaultBench bench_;
  FaultBench::Strike strike_;
  std::vector<Text> reported_;
  std::weak_ptr<frmrcBHDGS> former_;
  bool escaped_ = false;
};

class FaultSweep : public testing::TestWithParam<std::size_t> {
 public:
  static void TearDownTestSuite() {
    for (const auto& [source, faults] : faults_) std::printf("%s: %d faults\n", source, faults);
  }

 protected:
  void Sweep(Source source, const RuntimeError& error) {
    const Operation& operation = Operations()[GetParam()];
    for (const Extent extent : {Extent::kOnce, Extent::kFromThereOn}) {
      for (int nth = 1;; ++nth) {
        SCOPED_TRACE(std::string(NameOf(source)) + " " + std::to_string(nth) +
                     (extent == Extent::kOnce ? " once" : " from there on"));
        if (!Attempt(operation, source, nth, extent, error).Run()) break;
        ++faults_[NameOf(source)];
        if (HasFailure()) return;
      }
    }
  }

 private:
  static inline std::map<const char*, int> faults_;
};

TEST_P(FaultSweep, FileKit) {
  Sweep(Source::kFileKit, RuntimeError(-2147220991, u"the kit's own failure"));
}
TEST_P(FaultSweep, FileSystem) {
  Sweep(Source::kFileSystem, RuntimeError(ErrorNumber::kPermissionDenied));
}
TEST_P(FaultSweep, Toolkit) {
  Sweep(Source::kToolkit, RuntimeError(ErrorNumber::kInternalError));
}
TEST_P(FaultSweep, Allocator) {
  Sweep(Source::kAllocator, RuntimeError(ErrorNumber::kOutOfMemory));
}
TEST_P(FaultSweep, Host) {
  Sweep(Source::kHost, RuntimeError(ErrorNumber::kCannotCreateObject));
}

INSTANTIATE_TEST_SUITE_P(All, FaultSweep, testing::Range(std::size_t{0}, Operations().size()),
                         [](const auto& tested) { return Operations()[tested.param].name; });

}  // namespace
}  // namespace quill

// The three runs, and how each is judged.
#include "host/win32/endurance.h"

#include <chrono>
#include <utility>
#include <vector>

#include "host/remote/scenario.h"
#include "host/win32/host_folder.h"
#include "host/win32/leak_watch.h"
#include "host/win32/native_stage.h"
#include "host/win32/plugin_library.h"
#include "host/win32/plugin_session.h"
#include "host/win32/window_robot.h"
#include "support/number_text.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

using Tell = std::function<void(const Text& line)>;

constexpr int kProfile = 3;
constexpr int kRepliesPerCycle = 10;
constexpr int kDamagedReply = 100;  // every one of so many

// Does the work so often and tells in a line how long it took and what there is of each resource,
// and what grew. True when nothing grew.
bool Repeat(TextView what, int cycles, const Tell& tell, const std::function<void(int)>& work) {
  const auto begin = std::chrono::steady_clock::now();
  LeakWatch watch(cycles);
  for (int cycle = 1; cycle <= cycles; ++cycle) {
    work(cycle);
    watch.CycleDone();
  }
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
  Text line = Concat({Decimal(cycles), u" ", what, u", ",
                      Decimal(static_cast<std::int64_t>(taken.count() + 0.5)), u" s:"});
  Text leaks;
  TextView separator = u" ";
  for (const LeakWatch::Course& course : watch.Courses()) {
    line +=
        Concat({std::exchange(separator, u", "), course.resource, u" ", Decimal(course.before)});
    if (course.after != course.before) line += Concat({u" -> ", Decimal(course.after)});
    if (!course.grew) continue;
    leaks +=
        Concat({u"\nleak: ", course.resource, u" grew by ", Decimal(course.after - course.before)});
  }
  tell(line + leaks);
  return leaks.empty();
}

Scenario MachineWithMods(bool has_mods) {
  Scenario scenario;
  scenario.index = kProfile;
  // The dialog adds the mods of each reply to those that it has.
  if (has_mods) scenario.mods = {u"None", u"Team Sabre"};
  for (int type = 0; type < 9; ++type) {
    scenario.maps.push_back(
        {Concat({u"Own map ", Decimal(type)}), Concat({u"OWN_", Decimal(type), u".BMS"}), type});
  }
  return scenario;
}

[[noreturn]] void Fail(TextView what) {
  throw RuntimeError(ErrorNumber::kInternalError, what);
}

bool LoadAgainAndAgain(const Text& path, int cycles, const Text& root, ContractLog& contract,
                       const Tell& tell) {
  // Wine's own part for file dialogs loses a handle each time it is loaded and unloaded.
  const LoadedLibrary kept(u"comdlg32.dll");
  return Repeat(u"times loaded, used and unloaded", cycles, tell, [&](int) {
    {
      const LoadedLibrary library(path);
      PluginSession session(library, contract, root);
      session.HostCall([](PluginClient& plugin) {
        if (plugin.DllVersion() != plugin.Field(u"Version"))
          Fail(u"the plug-in is of two versions");
      });
    }
    if (::GetModuleHandleW(L"kvrrcBHDGS.dll") != nullptr) Fail(u"the library is still loaded");
  });
}

WindowRobot Robot() {
  return WindowRobot(u"frmrcBHDGS");
}

// Opens the dialog; `step` runs inside, once, and closes it.
void Open(Stage& stage, const std::function<void()>& step) {
  bool is_begun = false;
  stage.SetPrivis({}, true);
  stage.LoadInterface(kProfile, {u"", u"endurance"}, [&] {
    if (!std::exchange(is_begun, true)) step();
    return true;
  });
  if (Robot().FormWindow() != nullptr) Fail(u"the dialog is still there");
}

bool OpenAgainAndAgain(Stage& stage, int cycles, const Tell& tell) {
  const Text reply = SettingsReply(MachineWithMods(true));
  return Repeat(u"times opened, filled and closed", cycles, tell, [&](int cycle) {
    stage.kit_watch().files.clear();  // what the host itself notes is no leak
    Open(stage, [&] {
      stage.RemoteData(reply);
      Robot().Choose(u"cboMods", u"Team Sabre");
      Robot().ClickTab(u"Map Settings");
      Robot().SelectRows(u"lstAvlMaps", {0, 1, 2});
      Robot().Key(u"lstAvlMaps", u'+');
      if (Robot().Read(u"lstSelMaps", u"count") != u"3") Fail(u"the rotation lacks its maps");
      if (cycle % 2 != 0) return Robot().CloseForm();
      Robot().Press(u"cmdCancel");
      Robot().Release(u"cmdCancel");
    });
  });
}

bool ReplyAgainAndAgain(Stage& stage, int replies, const Tell& tell) {
  const Text reply = SettingsReply(MachineWithMods(false));
  const auto deliver_damaged = [&] {
    stage.RemoteData(reply.substr(0, reply.size() / 2));
    if (stage.TakeBoxes().size() != 1) Fail(u"a damaged reply was not told");
    // What the host itself notes of it is no leak.
    stage.kit_watch().failures.clear();
    stage.kit_watch().reports.clear();
  };
  bool is_flat = false;
  Open(stage, [&] {
    stage.RemoteData(SettingsReply(MachineWithMods(true)));
    deliver_damaged();  // the first message box of a process brings in what the system keeps
    is_flat = Repeat(u"replies into an open dialog", replies, tell, [&](int count) {
      count % kDamagedReply == 0 ? deliver_damaged() : stage.RemoteData(reply);
    });
    Robot().CloseForm();
  });
  return is_flat;
}

}  // namespace

bool Endure(const Text& path, int cycles, ContractLog& contract, const Tell& tell) {
  bool is_flat = LoadAgainAndAgain(path, cycles, FreshHostFolder(), contract, tell);
  const PluginLibrary library(path);
  const auto stage = MakeNativeStage(library, contract);
  is_flat = OpenAgainAndAgain(*stage, cycles, tell) && is_flat;
  is_flat = ReplyAgainAndAgain(*stage, cycles * kRepliesPerCycle, tell) && is_flat;
  tell(is_flat ? u"Nothing grew." : u"Something grew.");
  return is_flat;
}

}  // namespace quill::host

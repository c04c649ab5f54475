#include "host/win32/endurance.h"

#include <chrono>
#include <exception>
#include <string>
#include <utility>

#include "host/remote/settings_reply.h"
#include "host/win32/host_folder.h"
#include "host/win32/leak_watch.h"
#include "host/win32/plugin_library.h"
#include "host/win32/plugin_session.h"
#include "host/win32/rights_collection.h"
#include "host/win32/window_robot.h"
#include "support/number_text.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

using Tell = std::function<void(const Text& line)>;

constexpr int kProfile = 3;
constexpr int kRepliesPerCycle = 10;
constexpr int kDamagedReply = 100;  // every one of so many

// One run: its time, and what grew in it.
class Run {
 public:
  Run(TextView what, int cycles, const Tell& tell)
      : what_(what), cycles_(cycles), watch_(cycles), tell_(tell) {}

  void CycleDone() { watch_.CycleDone(); }

  // True when nothing grew.
  [[nodiscard]] bool Judge() const {
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin_;
    Text line = Concat({Decimal(cycles_), u" ", what_, u", ",
                        Decimal(static_cast<std::int64_t>(taken.count() + 0.5)), u" s:"});
    bool is_flat = true;
    for (const LeakWatch::Course& course : watch_.Courses()) {
      line += Concat({course.resource == Resource{} ? u" " : u", ", ResourceName(course.resource),
                      u" ", Decimal(course.before)});
      if (course.after != course.before) line += Concat({u" -> ", Decimal(course.after)});
      is_flat = is_flat && !course.grew;
    }
    tell_(line);
    for (const LeakWatch::Course& course : watch_.Courses()) {
      if (!course.grew) continue;
      tell_(Concat({u"leak: ", ResourceName(course.resource), u" grew by ",
                    Decimal(course.after - course.before)}));
    }
    return is_flat;
  }

 private:
  const TextView what_;
  const int cycles_;
  LeakWatch watch_;
  const Tell& tell_;
  const std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

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

bool LoadAgainAndAgain(const Text& path, int cycles, const Text& root, ContractLog& contract,
                       const Tell& tell) {
  // Wine's own part for file dialogs loses a handle each time it is loaded and unloaded.
  const LoadedLibrary kept(u"comdlg32.dll");
  Run run(u"times loaded, used and unloaded", cycles, tell);
  for (int cycle = 0; cycle < cycles; ++cycle) {
    {
      const LoadedLibrary library(path);
      PluginSession session(library, contract, root);
      session.HostCall([](PluginClient& plugin) {
        if (plugin.DllVersion() != plugin.Field(u"Version")) {
          throw RuntimeError(ErrorNumber::kInternalError, u"the plug-in is of two versions");
        }
      });
    }
    if (::GetModuleHandleW(L"kvrrcBHDGS.dll") != nullptr) {
      throw RuntimeError(ErrorNumber::kInternalError, u"the library is still loaded");
    }
    run.CycleDone();
  }
  return run.Judge();
}

// The dialog, its operator and its host.
class DialogRuns {
 public:
  DialogRuns(const LoadedLibrary& library, const Text& root, ContractLog& contract,
             const Tell& tell)
      : session_(library, contract, root), tell_(tell) {}

  bool OpenAgainAndAgain(int cycles) {
    Run run(u"times opened, filled and closed", cycles, tell_);
    for (int cycle = 0; cycle < cycles; ++cycle) {
      Open([&] {
        Deliver(first_reply_);
        robot_.Choose(u"cboMods", u"Team Sabre");
        robot_.ClickTab(u"Map Settings");
        robot_.SelectRows(u"lstAvlMaps", {0, 1, 2});
        robot_.Key(u"lstAvlMaps", u'+');
        if (robot_.Read(u"lstSelMaps", u"count") != u"3") Fail(u"the rotation lacks its maps");
        Close(cycle % 2 == 0);
      });
      run.CycleDone();
    }
    return run.Judge();
  }

  bool ReplyAgainAndAgain(int replies) {
    Run run(u"replies into an open dialog", replies, tell_);
    int damaged = 0;
    Open([&] {
      Deliver(first_reply_);
      // The first message box of a process brings in what the system keeps.
      Deliver(damaged_reply_);
      ++damaged;
      for (int reply = 1; reply <= replies; ++reply) {
        if (reply % kDamagedReply == 0) {
          Deliver(damaged_reply_);
          ++damaged;
          // The host's own notes of it are no leak.
          (void)session_.script().TakeLog();
          (void)session_.script().TakeReports();
        } else {
          Deliver(later_reply_);
        }
        run.CycleDone();
      }
      Close(true);
    });
    if (std::exchange(boxes_, 0) != damaged) Fail(u"not every damaged reply was told");
    return run.Judge();
  }

 private:
  [[noreturn]] static void Fail(TextView what) {
    throw RuntimeError(ErrorNumber::kInternalError, what);
  }

  // Opens the dialog; `step` runs inside, once, and closes it.
  void Open(const std::function<void()>& step) {
    const auto names = MakeRightsCollection({});
    const auto values = MakeRightsCollection({});
    std::exception_ptr failure;
    bool is_begun = false;
    const Heartbeat heartbeat([&] {
      if (const OpenBox box = FindOpenBox(); box.window != nullptr) {
        ++boxes_;
        AcknowledgeBox(box);
      } else if (robot_.FormShown() && !std::exchange(is_begun, true)) {
        try {
          step();
        } catch (...) {
          failure = std::current_exception();
          session_.HostCall([](PluginClient& plugin) { plugin.HideInterface(); });
        }
      }
    });
    session_.HostCall([&](PluginClient& plugin) {
      plugin.SetPrivis(names.get(), values.get(), true);
      plugin.LoadInterface(kProfile, {u"", u"endurance"});
    });
    if (failure) std::rethrow_exception(failure);
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageW(&message);
    if (robot_.FormWindow() != nullptr) Fail(u"the dialog is still there");
  }

  void Deliver(const Text& reply) {
    session_.HostCall([&](PluginClient& plugin) { plugin.RemoteData(reply); });
  }

  void Close(bool by_button) {
    if (by_button) {
      robot_.Press(u"cmdCancel", Button::kLeft);
      robot_.Release(u"cmdCancel", Button::kLeft);
    } else {
      robot_.CloseForm();
    }
  }

  PluginSession session_;
  const Tell& tell_;
  const WindowRobot robot_{u"frmrcBHDGS"};
  const Text first_reply_ = SettingsReply(MachineWithMods(true));
  const Text later_reply_ = SettingsReply(MachineWithMods(false));
  const Text damaged_reply_ = later_reply_.substr(0, later_reply_.size() / 2);
  int boxes_ = 0;
};

}  // namespace

bool Endure(const Text& path, int cycles, ContractLog& contract, const Tell& tell) {
  const Text root = FreshHostFolder();
  bool is_flat = LoadAgainAndAgain(path, cycles, root, contract, tell);
  const PluginLibrary library(path);
  DialogRuns runs(library, root, contract, tell);
  is_flat = runs.OpenAgainAndAgain(cycles) && is_flat;
  is_flat = runs.ReplyAgainAndAgain(cycles * kRepliesPerCycle) && is_flat;
  tell(is_flat ? u"Nothing grew." : u"Something grew.");
  return is_flat;
}

}  // namespace quill::host

// The operator's gestures and the host's calls of the main job.
#include "host/cli/main_job.h"

#include <chrono>
#include <memory>
#include <thread>
#include <utility>

#include "support/number_text.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

using namespace std::chrono_literals;

constexpr int kGameTypes = 9;

}  // namespace

MainJob::MainJob(const Scenario& scenario, Stage& stage, FileStorage& results, Text record_name,
                 EventSink tell, std::function<void(Stage& stage, const Text& moment)> look)
    : scenario_(scenario),
      stage_(stage),
      results_(results),
      tell_(std::move(tell)),
      look_(std::move(look)),
      record_path_(Concat({stage.HostRoot(), kStartRecordPath})),
      relay_(
          stage.HostRoot(), stage.storage(), results, scenario, std::move(record_name),
          [this](const Text& reply) { Receive(reply); }, tell_) {}

void MainJob::LoadSettingsFirst(Text name, std::string bytes) {
  settings_ = SettingsFile{std::move(name), std::move(bytes)};
}

bool MainJob::Run() {
  results_.Remove(record_path_);
  Note(u"host", Concat({u"plug-in ", stage_.PluginField(u"Name"), u" ", stage_.DllVersion(),
                        u", on the ", FromUtf8(stage_.Name()), u" layer"}));
  Note(u"host",
       Concat({u"hands over ", Decimal(std::ssize(scenario_.rights)), u" rights of ",
               scenario_.super_administrator ? u"a super-administrator" : u"an operator"}));
  stage_.SetPrivis(scenario_.rights, scenario_.super_administrator);
  Note(u"host", Concat({u"opens the plug-in for profile ", Decimal(scenario_.index), u", target \"",
                        scenario_.target, u"\""}));
  stage_.LoadInterface(scenario_.index, {u"", scenario_.target}, [this] { return GoOn(); });
  TellBoxes();
  Note(u"host", u"the dialog is closed");
  for (const Text& entry : stage_.kit_watch().TakeLog()) Note(u"log", entry);
  return is_started_;
}

bool MainJob::GoOn() {
  if (std::exchange(is_busy_, true)) return true;
  const auto end = [](bool* is_busy) { *is_busy = false; };
  const std::unique_ptr<bool, decltype(end)> busy(&is_busy_, end);
  if (!std::exchange(is_looked_at_, true)) Look(u"empty");
  if (relay_.Pump()) {
    TellBoxes();
  } else if (phase_ == Phase::kFilled) {
    phase_ = Phase::kStarted;
    Operate();
  } else if (relay_.AwaitsReply()) {
    std::this_thread::sleep_for(10ms);
  } else if (phase_ == Phase::kGivenUp) {
    return false;
  } else {
    phase_ = Phase::kGivenUp;
    Note(u"operator", u"no answer will come, presses Cancel");
    Push(u"cmdCancel");
  }
  return true;
}

void MainJob::Receive(const Text& reply) {
  if (phase_ == Phase::kOpening) {
    phase_ = Phase::kFilled;
  } else {
    is_started_ = IsNumber(reply) && reply != u"0";
  }
  stage_.RemoteData(reply);
}

void MainJob::Operate() {
  Look(u"filled");
  Note(u"dialog",
       Concat({u"filled: server \"", stage_.Read(u"txtName", u"text"), u"\", mod \"",
               stage_.Read(u"cboMods", u"text"), u"\", ", stage_.Read(u"lstAvlMaps", u"tooltip")}));
  if (settings_ && !LoadSettings()) {
    Note(u"operator", u"does not start a game with settings that could not be loaded");
    return;
  }
  if (stage_.Read(u"txtName", u"text").empty()) {
    Note(u"operator", u"types a server name");
    stage_.Make(u"type NAME TEXT", {u"txtName", u"Unnamed Server"});
  }
  if (!settings_) {
    ChooseMod();
    ComposeRotation();
  }
  const int count = Count(u"lstSelMaps");
  for (int row = 0; row < count; ++row) {
    const Text item = Concat({u"item ", Decimal(row)});
    Note(u"dialog",
         Concat({u"rotation ", Decimal(row + 1), u": ", stage_.Read(u"lstSelMaps", item)}));
  }
  Look(u"rotation");
  Note(u"operator", u"presses Start Game");
  Push(u"cmdStart");
  TellBoxes();
}

bool MainJob::LoadSettings() {
  const Text path = Concat({stage_.HostRoot(), u"\\profiles\\", Decimal(scenario_.index),
                            u"\\settings\\", settings_->name});
  stage_.PutFile(path, settings_->bytes);
  Note(u"operator", Concat({u"loads the settings file \"", path, u"\""}));
  stage_.AnswerFileDialog({path}, false);
  Push(u"cmdLoad");
  if (TellBoxes()) return false;
  Note(u"dialog",
       Concat({u"now: server \"", stage_.Read(u"txtName", u"text"), u"\", mod \"",
               stage_.Read(u"cboMods", u"text"), u"\", ", stage_.Read(u"lblMapCnt", u"caption")}));
  return true;
}

// Takes the last one of the list, which is another one than the reply selects.
void MainJob::ChooseMod() {
  const int count = Count(u"cboMods");
  if (count == 0) return;
  const Text mod = stage_.Read(u"cboMods", Concat({u"item ", Decimal(count - 1)}));
  try {
    stage_.Make(u"choose NAME TEXT", {u"cboMods", mod});
    Note(u"operator", Concat({u"chooses the mod \"", mod, u"\""}));
  } catch (const RuntimeError& error) {
    Note(u"operator", Concat({u"cannot choose a mod: ", error.description()}));
  }
}

// Through all game types, by turns the last map by a double click, and the first and the last one
// by "+". A machine's own maps come last, so the rotation has maps of both kinds.
void MainJob::ComposeRotation() {
  Note(u"operator", u"turns to the tab \"Map Settings\"");
  stage_.Make(u"tab TEXT", {u"Map Settings"});
  for (int step = 0; step < kGameTypes; ++step) {
    if (step != 0) Push(u"cmdRight");
    const Text type = stage_.Read(u"txtGametype", u"text");
    const int count = Count(u"lstAvlMaps");
    Text what;
    if (count == 0) {
      what = u"finds no maps";
    } else if (step % 2 == 0) {
      what = u"adds the last map by a double click";
      stage_.Make(u"double-click NAME NUMBER", {u"lstAvlMaps", Decimal(count - 1)});
    } else {
      what = u"adds the first and the last map by \"+\"";
      stage_.Make(u"select NAME ROWS", {u"lstAvlMaps", u"0", Decimal(count - 1)});
      stage_.Make(u"key NAME TEXT", {u"lstAvlMaps", u"+"});
    }
    Note(u"operator", Concat({type, u": ", what}));
    TellBoxes();
  }
  Note(u"dialog", stage_.Read(u"lblMapCnt", u"caption"));
}

void MainJob::Push(const Text& button) {
  stage_.Make(u"push NAME BUTTON", {button, u"left"});
}

bool MainJob::TellBoxes() {
  bool has_failed = false;
  for (const SeenBox& box : stage_.TakeBoxes()) {
    has_failed = has_failed || box.caption == u"DLL Error!";
    Note(u"box", Concat({u"[", box.caption, u"] ", ReplaceAll(box.text, kLineBreak, u" / ")}));
  }
  return has_failed;
}

void MainJob::Note(TextView who, TextView what) {
  tell_(Concat({who, u": ", what}));
}

void MainJob::Look(const Text& moment) {
  if (look_) look_(stage_, moment);
}

int MainJob::Count(const Text& list) {
  return ToInt32(stage_.Read(list, u"count"));
}

}  // namespace quill::host
